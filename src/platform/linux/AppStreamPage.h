// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/MimeHandlers.h"
#include "platform/screens/StorePage.h"
#include "platform/uikit/LinkOpener.h"

#include <QString>
#include <memory>
#include <utility>

namespace reelsmith {

/// The page that the desktop's software store has for an application identifier.
class AppStreamPage : public StorePage {
public:
    AppStreamPage(std::shared_ptr<LinkOpener> linkOpener, const QString& applicationId)
        : m_linkOpener(std::move(linkOpener)), m_url(QStringLiteral("appstream:") + applicationId) {}

    bool isAvailable() const override {
        return mimehandlers::isAnyFor(QStringLiteral("x-scheme-handler/appstream"));
    }
    void open(Completion completion) override { m_linkOpener->open(m_url, std::move(completion)); }

private:
    const std::shared_ptr<LinkOpener> m_linkOpener;
    const QUrl m_url;
};

} // namespace reelsmith
