// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/PortalClient.h"
#include "platform/linux/sharing/SharingAction.h"

namespace reelsmith {

/// Begins a mail with the file attached, in the user's mail program.
class SendByMailAction : public SharingAction {
public:
    explicit SendByMailAction(const QDBusConnection& sessionBus)
        : m_portal(sessionBus, QStringLiteral("Email")) {}

    void findOut(std::function<void(bool isThere)> answer) override;
    void perform(const QUrl& file, Completion completion) override;
    void cancel() override { m_portal.cancel(); }

private:
    PortalClient m_portal;
};

} // namespace reelsmith
