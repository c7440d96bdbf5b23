// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/SourceFile.h"

#include "platform/foundation/URLs.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace reelsmith {

Result<mediaworker::Descriptor> openSourceFile(const QUrl& url) {
    const std::filesystem::path path = filePath(url);
    if (path.empty())
        return failure(QStringLiteral("the source is no file"));
    mediaworker::Descriptor source(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (!source.isOpen())
        return systemFailure(QStringLiteral("the source cannot be opened"), errno);
    struct stat status {};
    if (::fstat(source.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return failure(QStringLiteral("the source is no regular file"));
    return source;
}

} // namespace reelsmith
