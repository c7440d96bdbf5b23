// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/sharing/SaveCopyAction.h"

#include "platform/linux/HandedFile.h"

#include <utility>

namespace reelsmith {

SaveCopyAction::~SaveCopyAction() {
    if (const auto copy = m_copy.lock())
        copy->cancel();
}

void SaveCopyAction::perform(const QUrl& file, Completion completion) {
    const auto opened = openToHandOver(file);
    if (!opened) {
        complete(std::move(completion), Outcome::Failed, opened.error().localizedDescription);
        return;
    }
    m_dialog.request(
        QStringLiteral("SaveFile"), {QStringLiteral("Save a copy")},
        {{QStringLiteral("current_name"), file.fileName()}},
        [this, source = *opened, completion = std::move(completion)](const PortalRequest::Answer& answer) {
            const QUrl destination = PortalRequest::pickedFile(answer);
            if (destination.isEmpty())
                completing(completion)(answer);
            else
                copy(source, destination, completion);
        });
}

void SaveCopyAction::copy(const QDBusUnixFileDescriptor& source, const QUrl& destination,
                          Completion completion) {
    if (destination.isLocalFile())
        m_copy = FileCopy::start(source, destination.toLocalFile(), std::move(completion));
    else
        complete(std::move(completion), Outcome::Failed, QStringLiteral("That place is not on this device."));
}

void SaveCopyAction::cancel() {
    m_dialog.cancel();
    if (const auto copy = m_copy.lock())
        copy->cancel();
}

} // namespace reelsmith
