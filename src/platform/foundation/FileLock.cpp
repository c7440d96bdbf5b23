// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/FileLock.h"

#include <QFile>
#include <QtGlobal>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace reelsmith {

namespace {

bool waitForLock(int descriptor) {
    int result = 0;
    do
        result = ::flock(descriptor, LOCK_EX);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

} // namespace

FileLock::FileLock(const QString& path)
    : m_descriptor(::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    if (m_descriptor < 0 || !waitForLock(m_descriptor))
        qWarning("Lock file %s: %s", qUtf8Printable(path), std::strerror(errno));
}

FileLock::~FileLock() {
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

} // namespace reelsmith
