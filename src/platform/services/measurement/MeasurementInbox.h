// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/ServiceTransport.h"
#include "platform/services/measurement/MeasuredEvent.h"

#include <QList>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <variant>

namespace reelsmith {

/// That collection is switched on or off.
struct CollectionChange {
    bool isOn = true;
};

/// What the engine's thread has to do, handed over by all others. Any thread.
class MeasurementInbox {
public:
    using Entry = std::variant<MeasuredEvent, UserProperty, CollectionChange>;

    struct Delivery {
        QList<Entry> entries; ///< in the order in which they were posted
        std::optional<ServiceResult> answer;
        bool isClosed = false; ///< nothing comes any more
    };

    void post(Entry entry);

    /// Hands over what became of the request under way.
    void postAnswer(const ServiceResult& answer);

    /// Nothing is to be posted any more.
    void close();

    /// Waits until there is something, or `patience` is over; without patience however long it takes.
    Delivery take(std::optional<std::chrono::milliseconds> patience);

private:
    bool hasSomething() const { return !m_next.entries.isEmpty() || m_next.answer || m_next.isClosed; }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    Delivery m_next;
};

} // namespace reelsmith
