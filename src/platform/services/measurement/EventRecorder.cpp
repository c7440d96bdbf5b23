// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/EventRecorder.h"

namespace reelsmith {

void EventRecorder::record(const QList<MeasurementInbox::Entry>& entries) {
    for (const MeasurementInbox::Entry& entry : entries)
        std::visit([this](const auto& content) { add(content); }, entry);
    store();
}

void EventRecorder::add(const MeasuredEvent& event) {
    if (const auto checked = m_rules.checked(event))
        m_unstored.append(*checked);
}

void EventRecorder::add(const UserProperty& property) {
    if (const auto checked = m_rules.checked(property))
        m_unstored.append(*checked);
}

void EventRecorder::add(const CollectionChange& change) {
    store(); // what came before it is under the switch as it was
    m_database.setCollecting(change.isOn);
}

void EventRecorder::store() {
    const bool isAnything = !m_unstored.isEmpty() || !m_tally.counts().isEmpty();
    if (isAnything && m_database.store(m_unstored))
        m_unstored.clear();
    const qsizetype excess = m_unstored.size() - EventDatabase::mostEvents;
    if (excess > 0) {
        m_unstored.remove(0, excess);
        m_tally.add(Loss::Overflow, {}, excess);
    }
}

} // namespace reelsmith
