// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace reelsmith {

/// Keeps every other holder of a lock on the same file waiting, in this process and in others, for as long
/// as it lives. The kernel lets go of the lock of a process that dies. Any thread.
class FileLock {
public:
    /// Waits for the lock. Makes the file when there is none, and never removes it. Where the file cannot be
    /// opened, warns in the log and holds nothing.
    explicit FileLock(const QString& path);
    ~FileLock();

    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    int m_descriptor = -1;
};

} // namespace reelsmith
