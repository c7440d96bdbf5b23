// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/PortalClient.h"
#include "platform/linux/sharing/SharingAction.h"

#include <memory>

namespace reelsmith {

/// Shows the file in the file manager, or where none can be asked opens the file's folder.
class ShowInFolderAction : public SharingAction {
public:
    explicit ShowInFolderAction(const QDBusConnection& sessionBus)
        : m_bus(sessionBus), m_portal(sessionBus, QStringLiteral("OpenURI")) {}

    void findOut(std::function<void(bool isThere)> answer) override;
    void perform(const QUrl& file, Completion completion) override;
    void cancel() override;

private:
    void openFolder(const QUrl& file, Completion completion);

    QDBusConnection m_bus;
    std::unique_ptr<QObject> m_call; // of the file manager, under way
    Completion m_completion;         // of that call
    PortalClient m_portal;
};

} // namespace reelsmith
