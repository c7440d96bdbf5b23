// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/HandedFile.h"

#include "platform/foundation/URLs.h"

#include <cerrno>
#include <fcntl.h>

namespace reelsmith {

Result<QDBusUnixFileDescriptor> openToHandOver(const QUrl& file) {
    const int descriptor = ::open(filePath(file).c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return systemFailure(QStringLiteral("The file cannot be opened"), errno);
    QDBusUnixFileDescriptor result;
    result.giveFileDescriptor(descriptor);
    return result;
}

} // namespace reelsmith
