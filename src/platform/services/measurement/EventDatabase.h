// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/measurement/CollectionSwitch.h"
#include "platform/services/measurement/EventDatabaseFile.h"
#include "platform/services/measurement/LossTally.h"
#include "platform/services/measurement/MeasuredEvent.h"
#include "platform/services/measurement/UploadSchedule.h"

#include <QList>
#include <variant>

namespace reelsmith {

/// The events that wait for their upload, the properties in force, and what else outlives the process.
/// Several processes may work on it at once. What a call has done stands when it returns, or is not done at
/// all: each that writes tells whether it has, and names in the log why not. One thread.
class EventDatabase {
public:
    using Record = std::variant<MeasuredEvent, UserProperty>;

    static constexpr qint64 mostEvents = 10000;
    static constexpr std::chrono::days longestAge{30};
    static constexpr qint64 mostDistinctNames = 500;

    /// `folder` is made when there is none. `tally`, whose counts are kept here, must outlive the database.
    EventDatabase(const QString& folder, LossTally& tally);

    /// Stores `records` in their order, if anything is collected. What is too much or too old goes, the
    /// oldest first.
    bool store(const QList<Record>& records);

    /// The oldest events, none of them too old.
    QList<StoredEvent> oldest(int count);

    /// Removes `events`, wherever they were uploaded to, and goes on with `schedule`.
    bool remove(const QList<StoredEvent>& events, const UploadSchedule& schedule);

    UploadSchedule schedule();
    bool setSchedule(const UploadSchedule& schedule);

    /// Switches collection on or off. Off, what is stored goes, and nothing is stored or given back.
    void setCollecting(bool isOn);

private:
    bool perform(const std::function<void(SqliteConnection&)>& body);
    bool performCounting(const std::function<void(SqliteConnection&, LossTally&)>& body);
    tl::expected<void, SqliteError> attempt(const std::function<void(SqliteConnection&)>& body);
    void nameFailure(const QString& text);

    EventDatabaseFile m_file;
    CollectionSwitch m_collection;
    LossTally& m_tally;
    QString m_failure; // the last one, which is not named again
};

} // namespace reelsmith
