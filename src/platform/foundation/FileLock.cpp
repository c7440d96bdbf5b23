// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/FileLock.h"

#include <QFile>
#include <QtGlobal>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace reelsmith {

namespace {

int openLockFile(const QString& path) {
    return ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
}

bool waitForLock(int descriptor) {
    int result = 0;
    do
        result = ::flock(descriptor, LOCK_EX);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

} // namespace

FileLock::FileLock(const QString& path) : m_descriptor(openLockFile(path)) {
    if (m_descriptor < 0 || !waitForLock(m_descriptor))
        qWarning("Lock file %s: %s", qUtf8Printable(path), std::strerror(errno));
}

std::unique_ptr<FileLock> FileLock::ifFree(const QString& path) {
    std::unique_ptr<FileLock> lock(new FileLock(openLockFile(path)));
    const bool isTaken = lock->m_descriptor >= 0 && ::flock(lock->m_descriptor, LOCK_EX | LOCK_NB) == 0;
    return isTaken ? std::move(lock) : nullptr;
}

FileLock::~FileLock() {
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

} // namespace reelsmith
