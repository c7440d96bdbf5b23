// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/TemporaryOutput.h"

#include "platform/foundation/DocumentsFolder.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/URLs.h"

#include <QRandomGenerator>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace reelsmith {

namespace {

using mediaworker::Descriptor;

constexpr std::string_view prefix = ".reelsmith-";
constexpr std::string_view suffix = ".part";
constexpr mode_t resultMode = 0644;
constexpr int mostAttempts = 16;

// Nothing of the output's own name: that may be as long as a name can be.
std::string randomName() {
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::string name(prefix);
    for (int i = 0; i < 8; ++i)
        name += letters[QRandomGenerator::system()->bounded(static_cast<quint32>(letters.size()))];
    return name.append(suffix);
}

bool isTemporaryName(const std::string& name) {
    return name.starts_with(prefix) && name.ends_with(suffix);
}

bool takeLock(const Descriptor& file) {
    return ::flock(file.number(), LOCK_EX | LOCK_NB) == 0;
}

// Between its making and its locking a file looks left over to another process that starts just then. A file
// system that knows no locks takes the file without one.
bool isOurs(const Descriptor& file) {
    struct stat status {};
    const bool isTakenByOther = !takeLock(file) && errno == EWOULDBLOCK;
    return !isTakenByOther && ::fstat(file.number(), &status) == 0 && status.st_nlink > 0;
}

Result<void> checkName(const QUrl& output) {
    const std::filesystem::path path = filePath(output);
    if (path.empty() || !isInDocumentsFolder(output))
        return failure(QStringLiteral("the result would lie outside the documents folder"));
    struct stat status {};
    if (::lstat(path.c_str(), &status) == 0)
        return S_ISDIR(status.st_mode) ? systemFailure(QStringLiteral("cannot write the result"), EISDIR)
                                       : Result<void>();
    return errno == ENOENT ? Result<void>() : systemFailure(QStringLiteral("cannot write the result"), errno);
}

} // namespace

Result<std::unique_ptr<TemporaryOutput>> TemporaryOutput::create(const QUrl& output) {
    if (auto good = checkName(output); !good)
        return tl::unexpected(good.error());
    const std::filesystem::path folder = filePath(output).parent_path();
    int error = 0;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const std::filesystem::path path = folder / randomName();
        Descriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, resultMode));
        error = errno;
        if (!file.isOpen() && error != EEXIST)
            break;
        if (file.isOpen() && isOurs(file))
            return std::unique_ptr<TemporaryOutput>(new TemporaryOutput(output, path, std::move(file)));
        if (file.isOpen())
            ::unlink(path.c_str());
    }
    return systemFailure(QStringLiteral("cannot write into the folder of the result"), error);
}

TemporaryOutput::~TemporaryOutput() {
    if (!m_path.empty())
        ::unlink(m_path.c_str());
}

void TemporaryOutput::startFlushing() const {
    static_cast<void>(::sync_file_range(m_file.number(), 0, 0, SYNC_FILE_RANGE_WRITE));
}

Result<void> TemporaryOutput::flush() {
    if (::fdatasync(m_file.number()) != 0)
        return systemFailure(QStringLiteral("cannot write the result"), errno);
    return {};
}

Result<void> TemporaryOutput::moveIntoPlace() {
    auto moved = FileManager::defaultManager().replaceItem(m_output, m_path);
    if (moved)
        m_path.clear();
    return moved;
}

void TemporaryOutput::removeLeftovers(const QUrl& folder) {
    std::error_code error;
    for (std::filesystem::recursive_directory_iterator entry(filePath(folder), error), end; entry != end;
         entry.increment(error)) {
        if (!isTemporaryName(entry->path().filename().string()))
            continue;
        const Descriptor file(
            ::open(entry->path().c_str(), O_RDWR | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY));
        if (file.isOpen() && takeLock(file))
            ::unlink(entry->path().c_str());
    }
}

} // namespace reelsmith
