// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace reelsmith {

/// Whether anything is collected: on, unless switched off, which holds for all processes from then on. Kept
/// beside the database, so that damage to that does not switch it on again. Any thread.
class CollectionSwitch {
public:
    explicit CollectionSwitch(const QString& folder)
        : m_offFile(folder + QStringLiteral("/collection-off")) {}

    bool isOn() const;

    /// Warns in the log where it cannot be kept.
    void setOn(bool isOn) const;

private:
    const QString m_offFile; // there while it is off
};

} // namespace reelsmith
