// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/PortalClient.h"
#include "platform/linux/sharing/FileCopy.h"
#include "platform/linux/sharing/SharingAction.h"

namespace reelsmith {

/// Asks the user for a place and copies the file there.
class SaveCopyAction : public SharingAction {
public:
    explicit SaveCopyAction(const QDBusConnection& sessionBus)
        : m_dialog(sessionBus, QStringLiteral("FileChooser")) {}
    ~SaveCopyAction() override;

    void findOut(std::function<void(bool isThere)> answer) override { m_dialog.ask(std::move(answer)); }
    void perform(const QUrl& file, Completion completion) override;
    void cancel() override;

private:
    void copy(const QDBusUnixFileDescriptor& source, const QUrl& destination, Completion completion);

    PortalClient m_dialog;
    std::weak_ptr<FileCopy> m_copy;
};

} // namespace reelsmith
