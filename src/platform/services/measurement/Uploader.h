// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/FileLock.h"
#include "platform/services/ServiceConfiguration.h"
#include "platform/services/measurement/EventDatabase.h"
#include "platform/services/measurement/MeasurementInbox.h"
#include "platform/services/measurement/MeasurementSettings.h"
#include "platform/services/measurement/OtlpLogs.h"

#include <QList>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace reelsmith {

/// Where events are uploaded to, and by whose word.
struct UploadParts {
    std::optional<ServiceConfiguration::Endpoint> endpoint = {}; ///< none: nothing is ever sent
    std::shared_ptr<ServiceTransport> transport = {};            ///< needed with an endpoint
    std::shared_ptr<RemoteConfig> remoteConfig = {}; ///< of `MeasurementSettings`; null: the defaults
    std::function<QString()> installationId = {};    ///< called on the engine's thread
    std::chrono::milliseconds shortestRetryWait = std::chrono::seconds(30);
};

/// Takes events out of the database and to the collector, in bundles, one request at a time. Of all processes
/// one uploads at a time. One thread.
class Uploader {
public:
    /// `folder` is the database's. Answers come by way of `inbox`; `database` and `tally` must outlive the
    /// uploader.
    Uploader(UploadParts parts, const QString& folder, EventDatabase& database, LossTally& tally,
             std::shared_ptr<MeasurementInbox> inbox);

    /// Begins an upload if one is due. The result is when to ask again at the latest; none where there is no
    /// need to before something is stored or answered.
    std::optional<std::chrono::milliseconds> advance();

    /// Takes what became of the bundle under way, and sends the next if that was a full one.
    void take(const ServiceResult& result);

private:
    MeasurementSettings settings() const;
    std::chrono::milliseconds remaining();
    bool sendBundle();
    QByteArray fillBundle(const MeasurementSettings& settings);
    bool post(const QByteArray& body);
    bool settle(const OtlpAnswer& answer);
    void putOff(std::optional<std::chrono::milliseconds> retryAfter);

    const UploadParts m_parts;
    const QString m_lockPath;
    EventDatabase& m_database;
    LossTally& m_tally;
    const std::shared_ptr<MeasurementInbox> m_inbox;
    std::unique_ptr<FileLock> m_lock; // held while an upload is under way
    UploadSchedule m_before;          // as it was before the request under way
    QList<StoredEvent> m_bundle;      // all that goes from the database once it was taken
    bool m_isFull = false;            // whether there may be more than the bundle
};

} // namespace reelsmith
