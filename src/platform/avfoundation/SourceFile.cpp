// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/SourceFile.h"

#include "platform/foundation/URLs.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace reelsmith {

Result<mediaworker::Descriptor> openSourceFile(const QUrl& url) {
    const QString name = url.toDisplayString(QUrl::PreferLocalFile);
    const std::filesystem::path path = filePath(url);
    if (path.empty())
        return failure(QStringLiteral("\"%1\" is no file").arg(name));
    mediaworker::Descriptor source(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (!source.isOpen())
        return systemFailure(QStringLiteral("cannot open \"%1\"").arg(name), errno);
    struct stat status {};
    if (::fstat(source.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return failure(QStringLiteral("\"%1\" is no regular file").arg(name));
    return source;
}

} // namespace reelsmith
