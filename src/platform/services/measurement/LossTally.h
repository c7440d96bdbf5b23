// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QSet>
#include <QString>

namespace reelsmith {

/// What of the events is lost on its way, and why.
enum class Loss {
    EventName,          ///< an event whose name breaks the rules
    DistinctEventNames, ///< an event whose name is one too many
    ParameterCount,     ///< a parameter too many
    ParameterName,      ///< a parameter whose name breaks the rules
    ParameterValue,     ///< the end of a text
    PropertyName,       ///< a property whose name breaks the rules
    PropertyValue,      ///< the end of a property
    Overflow,           ///< an event pushed out by later ones
    Age,                ///< an event that nobody has fetched for too long
    Refusal,            ///< an event in a bundle that the collector refused
    Rejection,          ///< an event that the collector rejected out of a bundle
};

/// Counts what is lost, and names each thing in the log once. One thread.
class LossTally {
public:
    /// `name`: whose loss it is; empty where it is nobody's in particular.
    void add(Loss loss, const QString& name = {}, qint64 count = 1);

    /// What has been counted since `clear`.
    const QMap<Loss, qint64>& counts() const { return m_counts; }
    void clear() { m_counts.clear(); }

    /// The word for a loss, the same for all time.
    static QString word(Loss loss);

private:
    void nameInLog(Loss loss, const QString& name);

    QMap<Loss, qint64> m_counts;
    QSet<QString> m_named;
};

} // namespace reelsmith
