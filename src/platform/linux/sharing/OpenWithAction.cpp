// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/sharing/OpenWithAction.h"

#include "platform/linux/HandedFile.h"

#include <utility>

namespace reelsmith {

void OpenWithAction::perform(const QUrl& file, Completion completion) {
    const auto opened = openToHandOver(file);
    if (!opened) {
        complete(std::move(completion), Outcome::Failed, opened.error().localizedDescription);
        return;
    }
    m_portal.request(QStringLiteral("OpenFile"), {QVariant::fromValue(*opened)},
                     {{QStringLiteral("ask"), true}}, completing(std::move(completion)));
}

} // namespace reelsmith
