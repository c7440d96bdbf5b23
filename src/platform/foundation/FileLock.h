// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

namespace reelsmith {

/// Keeps every other holder of a lock on the same file waiting, in this process and in others, for as long
/// as it lives. The kernel lets go of the lock of a process that dies. Any thread.
class FileLock {
public:
    /// Waits for the lock. Makes the file when there is none, and never removes it. Where the file cannot be
    /// opened, warns in the log and holds nothing.
    explicit FileLock(const QString& path);

    /// The lock without any waiting; null where another holds it, or the file cannot be opened.
    static std::unique_ptr<FileLock> ifFree(const QString& path);

    ~FileLock();

    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    explicit FileLock(int descriptor) : m_descriptor(descriptor) {}

    int m_descriptor = -1;
};

} // namespace reelsmith
