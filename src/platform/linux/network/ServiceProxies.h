// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QNetworkProxyFactory>

namespace reelsmith {

/// The desktop's proxies, but for what goes to this device unprotected: that must not go through another.
class ServiceProxies : public QNetworkProxyFactory {
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
        if (query.url().scheme() == QLatin1StringView("http"))
            return {QNetworkProxy::NoProxy};
        return systemProxyForQuery(query);
    }

    /// The host whose address is needed to reach `url`.
    static QString nextHost(const QUrl& url) {
        const QNetworkProxy proxy = ServiceProxies().queryProxy(QNetworkProxyQuery(url)).constFirst();
        return proxy.type() == QNetworkProxy::NoProxy ? url.host() : proxy.hostName();
    }
};

} // namespace reelsmith
