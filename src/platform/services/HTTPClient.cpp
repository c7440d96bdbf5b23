// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/HTTPClient.h"

#include "platform/services/Unconfigured.h"

#include <algorithm>

namespace reelsmith {

namespace {

std::shared_ptr<HTTPClient>& sharedClient() {
    static std::shared_ptr<HTTPClient> client = unconfiguredHTTPClient();
    return client;
}

} // namespace

std::optional<double> DownloadProgress::fractionCompleted() const {
    if (!expectedBytes)
        return std::nullopt;
    return std::min(1.0, static_cast<double>(receivedBytes) / static_cast<double>(*expectedBytes));
}

std::shared_ptr<HTTPClient> HTTPClient::shared() {
    return sharedClient();
}

void HTTPClient::setShared(std::shared_ptr<HTTPClient> client) {
    sharedClient() = client ? std::move(client) : unconfiguredHTTPClient();
}

} // namespace reelsmith
