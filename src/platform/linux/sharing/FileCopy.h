// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/screens/FileSharing.h"

#include <QDBusUnixFileDescriptor>
#include <QString>
#include <atomic>
#include <memory>

namespace reelsmith {

/// A file being copied on a background thread. The copy takes its name when it is whole, in the place of any
/// file that has it; one that fails or is cancelled leaves what was there.
class FileCopy {
public:
    /// Begins to copy, from where `source` stands. `completion` is called once, on the main queue.
    static std::shared_ptr<FileCopy> start(const QDBusUnixFileDescriptor& source,
                                           const QString& destinationPath,
                                           FileSharing::Completion completion);

    /// Any thread.
    void cancel() { m_isCancelled = true; }

private:
    struct End {
        FileSharing::Outcome outcome;
        QString error;
    };

    End run(const QDBusUnixFileDescriptor& source, const QString& destinationPath) const;

    std::atomic<bool> m_isCancelled = false;
};

} // namespace reelsmith
