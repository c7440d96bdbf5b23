// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/bus/PortalRequest.h"

#include <QPointer>

namespace reelsmith {

/// A user of one interface of the desktop portal, with one request under way at a time. Main thread.
class PortalClient : public QObject {
public:
    /// `interface`: without its prefix, such as "FileChooser".
    PortalClient(const QDBusConnection& sessionBus, const QString& interface)
        : m_bus(sessionBus), m_interface(interface) {}

    /// Whether the desktop has that interface; answers later, unless this object is gone by then.
    void ask(std::function<void(bool isThere)> answer);

    /// Sends a request; one that is still under way is cancelled. See PortalRequest.
    void request(const QString& method, const QVariantList& arguments, const QVariantMap& options,
                 PortalRequest::Completion completion);

    /// Cancels the request that is under way, if any.
    void cancel();

private:
    QDBusConnection m_bus;
    const QString m_interface;
    QPointer<PortalRequest> m_request;
};

} // namespace reelsmith
