// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/LinkOpener.h"

#include <QDBusConnection>
#include <QObject>
#include <chrono>

namespace reelsmith {

/// Opens links by the desktop portal, and where that cannot do it by the desktop's own tools. Needs a
/// QGuiApplication.
class PortalLinkOpener : public LinkOpener {
public:
    /// `limit`: how long the portal may take where no program for an address is known here. It may know one
    /// all the same, but if it does not it never answers.
    explicit PortalLinkOpener(const QDBusConnection& sessionBus,
                              std::chrono::milliseconds limit = std::chrono::seconds(5))
        : m_bus(sessionBus), m_limit(limit) {}

    void open(const QUrl& url, Completion completion) override;

private:
    QDBusConnection m_bus;
    const std::chrono::milliseconds m_limit;
    QObject m_requests;
};

} // namespace reelsmith
