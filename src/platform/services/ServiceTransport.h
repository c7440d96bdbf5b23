// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/ServiceError.h"

#include <QByteArray>
#include <QList>
#include <QUrl>
#include <chrono>
#include <functional>
#include <optional>
#include <tl/expected.hpp>
#include <utility>

namespace reelsmith {

using ServiceHeaders = QList<std::pair<QByteArray, QByteArray>>;

/// Whether a service may be spoken to there: over https anywhere, over plain http on this device alone.
bool isServiceAddress(const QUrl& url);

/// What is posted to a service.
struct ServiceRequest {
    QUrl url;
    ServiceHeaders headers = {}; ///< "Content-Type" among them
    QByteArray body = {};
    std::chrono::milliseconds timeLimit = std::chrono::seconds(10); ///< for the whole exchange
    qint64 maximumAnswerBytes = 1024 * 1024;                        ///< a longer body is an error
};

/// What a service has answered, whatever its status.
struct ServiceAnswer {
    int status = 0;
    ServiceHeaders headers = {};
    QByteArray body = {};

    /// The value of a header, whose name may be written in any case; none when the answer has none of it.
    std::optional<QByteArray> header(const QByteArray& name) const;
};

using ServiceResult = tl::expected<ServiceAnswer, ServiceError>;

/// Carries requests to services. Any thread.
class ServiceTransport {
public:
    using Completion = std::function<void(const ServiceResult& result)>;

    virtual ~ServiceTransport() = default;

    /// Posts `request`. Redirects are not followed: they are answers too. An error is what yields no whole
    /// answer: an address where no service may be, no connection, too long a time or a body. The completion
    /// runs once, on the transport's own thread, never before this call has returned; a transport that ends
    /// drops the exchanges under way and calls nobody.
    virtual void post(const ServiceRequest& request, Completion completion) = 0;
};

} // namespace reelsmith
