// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/ServiceTransport.h"

#include <QRegularExpression>
#include <algorithm>

namespace reelsmith {

namespace {

bool isThisDevice(const QString& host) {
    static const QRegularExpression loopback(
        QStringLiteral(R"(\A(localhost|::1|127\.\d{1,3}\.\d{1,3}\.\d{1,3})\z)"));
    return loopback.match(host).hasMatch();
}

} // namespace

bool isServiceAddress(const QUrl& url) {
    if (!url.isValid() || url.host().isEmpty())
        return false;
    return url.scheme() == QLatin1StringView("https") ||
           (url.scheme() == QLatin1StringView("http") && isThisDevice(url.host()));
}

std::optional<QByteArray> ServiceAnswer::header(const QByteArray& name) const {
    const auto found = std::ranges::find_if(headers, [&name](const auto& header) {
        return header.first.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == headers.end() ? std::nullopt : std::optional(found->second);
}

} // namespace reelsmith
