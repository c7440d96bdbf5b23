// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/MeasurementEngine.h"

#include "platform/services/measurement/EventRecorder.h"

#include <algorithm>

namespace reelsmith {

namespace {

constexpr std::chrono::milliseconds patienceWithDatabase = std::chrono::seconds(5);

} // namespace

MeasurementEngine::MeasurementEngine(const QString& folder, UploadParts parts)
    : m_thread([folder, parts = std::move(parts), inbox = m_inbox] { run(folder, parts, inbox); }) {}

MeasurementEngine::~MeasurementEngine() {
    m_inbox->close();
    m_thread.join();
}

void MeasurementEngine::logEventWithName(const QString& name,
                                         const std::optional<AnalyticsParameters>& parameters) {
    m_inbox->post(MeasuredEvent::now(name, parameters.value_or(AnalyticsParameters())));
}

void MeasurementEngine::setUserPropertyString(const QString& value, const QString& name) {
    m_inbox->post(UserProperty{name, value});
}

void MeasurementEngine::setCollectionEnabled(bool isEnabled) {
    m_inbox->post(CollectionChange{isEnabled});
}

void MeasurementEngine::run(const QString& folder, const UploadParts& parts,
                            const std::shared_ptr<MeasurementInbox>& inbox) {
    LossTally tally;
    EventDatabase database(folder, tally);
    EventRecorder recorder(database, tally);
    Uploader uploader(parts, folder, database, tally, inbox);
    std::optional<std::chrono::milliseconds> patience = std::chrono::milliseconds::zero();
    while (true) {
        const MeasurementInbox::Delivery delivery = inbox->take(patience);
        recorder.record(delivery.entries);
        if (delivery.isClosed)
            return;
        if (delivery.answer)
            uploader.take(*delivery.answer);
        patience = uploader.advance();
        if (recorder.hasUnstored())
            patience = std::min(patience.value_or(patienceWithDatabase), patienceWithDatabase);
    }
}

} // namespace reelsmith
