// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/sharing/SendByMailAction.h"

#include "platform/linux/HandedFile.h"
#include "platform/linux/MimeHandlers.h"

#include <utility>

namespace reelsmith {

void SendByMailAction::findOut(std::function<void(bool isThere)> answer) {
    if (mimehandlers::hasMailProgram())
        m_portal.ask(std::move(answer));
    else
        answer(false);
}

void SendByMailAction::perform(const QUrl& file, Completion completion) {
    const auto opened = openToHandOver(file);
    if (!opened) {
        complete(std::move(completion), Outcome::Failed, opened.error().localizedDescription);
        return;
    }
    const QList<QDBusUnixFileDescriptor> attachments{*opened};
    m_portal.request(QStringLiteral("ComposeEmail"), {},
                     {{QStringLiteral("subject"), file.fileName()},
                      {QStringLiteral("attachment_fds"), QVariant::fromValue(attachments)}},
                     completing(std::move(completion)));
}

} // namespace reelsmith
