// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/FetchedConfig.h"
#include "platform/services/LocalInstallations.h"
#include "platform/services/RemoteConfig.h"
#include "platform/services/ServiceConfiguration.h"
#include "platform/services/ServiceTransport.h"
#include "platform/services/StateFile.h"

#include <QDateTime>
#include <memory>
#include <mutex>

namespace reelsmith {

/// Remote configuration from a server that speaks the OpenFeature Remote Evaluation Protocol. Fetched and
/// activated values are kept on disk; a damaged file counts as none. To be held by a shared pointer. Where
/// its transport or it ends, nobody is called any more.
class OfrepRemoteConfig : public RemoteConfig, public std::enable_shared_from_this<OfrepRemoteConfig> {
public:
    using Clock = std::function<QDateTime()>;

    /// `folder`: where the values are kept.
    OfrepRemoteConfig(ServiceConfiguration::Endpoint endpoint, std::shared_ptr<ServiceTransport> transport,
                      std::shared_ptr<LocalInstallations> installations,
                      const QString& folder = StateFile::folder(),
                      Clock clock = QDateTime::currentDateTimeUtc);

    void fetchWithExpirationDuration(std::chrono::seconds expirationDuration,
                                     FetchCompletion completion) override;
    void activateWithCompletion(ActivateCompletion completion) override;
    std::optional<QString> stringValueForKey(const QString& key) const override;
    QSet<QString> keysWithPrefix(const QString& prefix) const override;

private:
    void fetch(std::chrono::seconds expirationDuration, FetchCompletion completion);
    void take(const ServiceResult& result, FetchedConfig known, const FetchCompletion& completion);
    bool activate();
    ServiceRequest request() const;
    FetchedConfig known(const ServiceRequest& request) const;

    const ServiceConfiguration::Endpoint m_endpoint;
    const std::shared_ptr<ServiceTransport> m_transport;
    const std::shared_ptr<LocalInstallations> m_installations;
    const Clock m_clock;
    const StateFile m_fetchedFile, m_activatedFile;

    mutable std::mutex m_mutex; // of what follows; not held while files are written
    FetchedConfig m_fetched;
    RemoteValues m_activated;
};

} // namespace reelsmith
