// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/SecurityScopedAccess.h"

#include "platform/foundation/URLs.h"

#include <algorithm>
#include <fcntl.h>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace reelsmith {

namespace {

std::mutex openMutex;
std::vector<int> openDescriptors;

bool isFileOpen(const std::filesystem::path& path) {
    struct stat wanted {};
    if (::stat(path.c_str(), &wanted) != 0)
        return false;
    const std::lock_guard lock(openMutex);
    return std::any_of(openDescriptors.begin(), openDescriptors.end(), [&wanted](int descriptor) {
        struct stat open {};
        return ::fstat(descriptor, &open) == 0 && open.st_dev == wanted.st_dev &&
               open.st_ino == wanted.st_ino;
    });
}

} // namespace

bool SecurityScopedAccess::start() {
    if (m_descriptor >= 0)
        return true;
    const std::filesystem::path path = filePath(m_url);
    // Without O_NONBLOCK a FIFO would keep us waiting for its writer.
    m_descriptor = path.empty() ? -1 : ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (m_descriptor < 0)
        return false;
    const std::lock_guard lock(openMutex);
    openDescriptors.push_back(m_descriptor);
    return true;
}

void SecurityScopedAccess::stop() {
    if (m_descriptor < 0)
        return;
    const std::lock_guard lock(openMutex);
    std::erase(openDescriptors, m_descriptor);
    ::close(m_descriptor);
    m_descriptor = -1;
}

bool SecurityScopedAccess::isOpenOn(const std::filesystem::path& path) {
    if (isFileOpen(path))
        return true;
    std::error_code error;
    if (!std::filesystem::is_directory(std::filesystem::symlink_status(path, error)))
        return false;
    for (std::filesystem::recursive_directory_iterator entry(path, error), end; entry != end;
         entry.increment(error)) {
        if (isFileOpen(entry->path()))
            return true;
    }
    return false;
}

} // namespace reelsmith
