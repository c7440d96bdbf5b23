// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/PortalClient.h"
#include "platform/linux/sharing/SharingAction.h"

namespace reelsmith {

/// Lets the user choose an application to open the file with.
class OpenWithAction : public SharingAction {
public:
    explicit OpenWithAction(const QDBusConnection& sessionBus)
        : m_portal(sessionBus, QStringLiteral("OpenURI")) {}

    void findOut(std::function<void(bool isThere)> answer) override { m_portal.ask(std::move(answer)); }
    void perform(const QUrl& file, Completion completion) override;
    void cancel() override { m_portal.cancel(); }

private:
    PortalClient m_portal;
};

} // namespace reelsmith
