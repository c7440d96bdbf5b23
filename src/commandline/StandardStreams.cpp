// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/StandardStreams.h"

#include <cstdio>

namespace reelsmith {

void printLine(const std::string& line) {
    const std::string text = line + '\n';
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

void printErrorLine(const QString& line) {
    const std::string text = printable(line).toStdString() + '\n';
    std::fwrite(text.data(), 1, text.size(), stderr);
}

QString printable(QString text) {
    for (QChar& character : text) {
        if (!character.isPrint() && !character.isSurrogate())
            character = QLatin1Char('?');
    }
    return text;
}

} // namespace reelsmith
