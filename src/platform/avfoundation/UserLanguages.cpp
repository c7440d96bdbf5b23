// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/UserLanguages.h"

#include <QLocale>
#include <algorithm>

namespace reelsmith {

std::vector<std::string> languageCodes(const QStringList& localeNames) {
    std::vector<std::string> codes;
    for (const QString& name : localeNames) {
        const QLocale::Language language = QLocale(name).language();
        if (language == QLocale::C || language == QLocale::AnyLanguage)
            continue;
        for (const auto kind : {QLocale::ISO639Part2T, QLocale::ISO639Part2B}) {
            const std::string code = QLocale::languageToCode(language, kind).toStdString();
            if (!code.empty() && std::find(codes.begin(), codes.end(), code) == codes.end())
                codes.push_back(code);
        }
    }
    return codes;
}

std::vector<std::string> userLanguages() {
    return languageCodes(QLocale::system().uiLanguages());
}

} // namespace reelsmith
