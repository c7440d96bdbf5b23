// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/measurement/EventDatabase.h"
#include "platform/services/measurement/EventRules.h"
#include "platform/services/measurement/MeasurementInbox.h"

#include <QList>

namespace reelsmith {

/// Brings what was logged into the database, as far as the rules allow. What cannot be stored waits for the
/// next time. One thread.
class EventRecorder {
public:
    /// Both must outlive the recorder.
    EventRecorder(EventDatabase& database, LossTally& tally)
        : m_database(database), m_tally(tally), m_rules(tally) {}

    void record(const QList<MeasurementInbox::Entry>& entries);

    /// Whether something waits for another attempt.
    bool hasUnstored() const { return !m_unstored.isEmpty(); }

private:
    void add(const MeasuredEvent& event);
    void add(const UserProperty& property);
    void add(const CollectionChange& change);
    void store();

    EventDatabase& m_database;
    LossTally& m_tally;
    EventRules m_rules;
    QList<EventDatabase::Record> m_unstored;
};

} // namespace reelsmith
