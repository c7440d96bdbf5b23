// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/PortalClient.h"
#include "platform/screens/MailDrafts.h"
#include "platform/uikit/LinkOpener.h"

#include <memory>

namespace reelsmith {

/// Drafts by the desktop portal, and where that cannot do it by a link that the mail program opens.
class PortalMailDrafts : public MailDrafts {
public:
    PortalMailDrafts(const QDBusConnection& sessionBus, std::shared_ptr<LinkOpener> linkOpener)
        : m_portal(sessionBus, QStringLiteral("Email")), m_linkOpener(std::move(linkOpener)) {}

    bool canSendMail() const override;
    void compose(const Draft& draft, Completion completion) override;
    void cancel() override { m_portal.cancel(); }

private:
    PortalClient m_portal;
    const std::shared_ptr<LinkOpener> m_linkOpener;
};

} // namespace reelsmith
