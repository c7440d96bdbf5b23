// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Unconfigured.h"

#include "platform/foundation/DispatchQueue.h"

#include <utility>

namespace reelsmith {

namespace {

void reportLater(DispatchQueue::Work report) {
    DispatchQueue::global(QualityOfService::UserInitiated).async(std::move(report));
}

class UnconfiguredRemoteConfig : public RemoteConfig {
public:
    void fetchWithExpirationDuration(std::chrono::seconds, FetchCompletion completion) override {
        reportLater([completion = std::move(completion)] {
            completion(RemoteConfigFetchStatus::Failure, notConfigured());
        });
    }

    void activateWithCompletion(ActivateCompletion completion) override {
        reportLater([completion = std::move(completion)] { completion(false, notConfigured()); });
    }

    std::optional<QString> stringValueForKey(const QString&) const override { return std::nullopt; }
    QSet<QString> keysWithPrefix(const QString&) const override { return {}; }

private:
    static ServiceError notConfigured() {
        return {QStringLiteral("No remote configuration service is configured")};
    }
};

class UnconfiguredInstallations : public Installations {
public:
    void authTokenForcingRefresh(Refresh, AuthTokenCompletion completion) override {
        reportLater([completion = std::move(completion)] {
            completion(std::nullopt, ServiceError{QStringLiteral("No installation service is configured")});
        });
    }
};

class UnconfiguredAnalytics : public Analytics {
public:
    void logEventWithName(const QString&, const std::optional<AnalyticsParameters>&) override {}
    void setUserPropertyString(const QString&, const QString&) override {}
};

class UnconfiguredHTTPClient : public HTTPClient {
public:
    void download(const QUrl&, Destination, Progress, Completion completion) override {
        DispatchQueue::main().async([completion = std::move(completion)] { completion(std::nullopt); });
    }
};

} // namespace

Services::Backends unconfiguredBackends() {
    return {std::make_shared<UnconfiguredRemoteConfig>(), std::make_shared<UnconfiguredInstallations>(),
            std::make_shared<UnconfiguredAnalytics>()};
}

std::shared_ptr<HTTPClient> unconfiguredHTTPClient() {
    return std::make_shared<UnconfiguredHTTPClient>();
}

} // namespace reelsmith
