// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/HTTPClient.h"

#include <QNetworkAccessManager>
#include <chrono>

namespace reelsmith {

/// Fetches over http and https; any other address fails. Redirects are followed, but never from https to
/// http.
class NetworkHTTPClient : public HTTPClient {
public:
    /// `patience`: how long a transfer may go without a byte.
    explicit NetworkHTTPClient(std::chrono::milliseconds patience = std::chrono::minutes(1))
        : m_patience(patience) {}

    void download(const QUrl& url, Destination destination, Progress progress,
                  Completion completion) override;

private:
    const std::chrono::milliseconds m_patience;
    QNetworkAccessManager m_manager; // owns the transfers under way
};

} // namespace reelsmith
