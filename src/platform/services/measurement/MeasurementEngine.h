// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/Analytics.h"
#include "platform/services/measurement/MeasurementInbox.h"
#include "platform/services/measurement/Uploader.h"

#include <memory>
#include <thread>

namespace reelsmith {

/// Measures what happens: keeps the events in a database and brings them to a collector, where an operator
/// has configured one (docs/services.md). All of it on a thread of its own: each call returns at once, from
/// any thread, and what it hands over is in the database well within a second.
class MeasurementEngine : public Analytics {
public:
    /// `folder`: for the engine alone, made when there is none; other processes may use it at the same time.
    MeasurementEngine(const QString& folder, UploadParts parts);

    /// Stores what has been handed over. Never waits for an upload: what is under way may come to its end or
    /// not, and its events go again another time.
    ~MeasurementEngine() override;

    void logEventWithName(const QString& name, const std::optional<AnalyticsParameters>& parameters) override;
    void setUserPropertyString(const QString& value, const QString& name) override;

    /// Switches collection on (as it is from the beginning) or off, for this and every later process. Off,
    /// what is stored goes, and nothing is collected.
    void setCollectionEnabled(bool isEnabled);

private:
    static void run(const QString& folder, const UploadParts& parts,
                    const std::shared_ptr<MeasurementInbox>& inbox);

    const std::shared_ptr<MeasurementInbox> m_inbox = std::make_shared<MeasurementInbox>();
    std::thread m_thread;
};

} // namespace reelsmith
