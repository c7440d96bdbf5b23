// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/FileManager.h"

#include "platform/foundation/DocumentsFolder.h"
#include "platform/foundation/URLs.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace reelsmith {

namespace {

QString quoted(const QUrl& url) {
    return QLatin1Char('"') + url.toDisplayString(QUrl::PreferLocalFile) + QLatin1Char('"');
}

tl::unexpected<Error> cannotList(const QUrl& url) {
    const int error = errno;
    return systemFailure(QStringLiteral("cannot list ") + quoted(url), error);
}

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

Result<void> checkConfinement(const QUrl& url) {
    if (!isInDocumentsFolder(url))
        return failure(QStringLiteral("the file lies outside the documents folder"));
    return {};
}

std::optional<FileManager::Date> modificationDate(int folder, const char* name) {
    struct statx facts {};
    if (statx(folder, name, AT_STATX_SYNC_AS_STAT, STATX_MTIME, &facts) != 0)
        return std::nullopt;
    return FileManager::Date(std::chrono::seconds(facts.stx_mtime.tv_sec) +
                             std::chrono::nanoseconds(facts.stx_mtime.tv_nsec));
}

} // namespace

FileManager& FileManager::defaultManager() {
    static FileManager manager;
    return manager;
}

Result<void> FileManager::createDirectory(const QUrl& url) {
    std::error_code error;
    std::filesystem::create_directories(filePath(url), error);
    if (error)
        return systemFailure(QStringLiteral("cannot make the folder ") + quoted(url), error.value());
    return {};
}

QUrl FileManager::Entry::url() const {
    return fileUrlOfBytes(path);
}

Result<std::vector<FileManager::Entry>> FileManager::contentsOfDirectory(const QUrl& url, Facts facts) const {
    const std::string folder = filePathBytes(url);
    const std::unique_ptr<DIR, CloseDirectory> directory(opendir(folder.c_str()));
    if (!directory)
        return cannotList(url);
    const std::string prefix = folder.ends_with('/') ? folder : folder + '/';
    std::vector<Entry> contents;
    // Only errno tells an error from the end.
    errno = 0;
    while (const dirent* const entry = readdir(directory.get())) {
        if (entry->d_name[0] != '.')
            contents.push_back(
                {prefix + entry->d_name, facts == Facts::ModificationDates
                                             ? modificationDate(dirfd(directory.get()), entry->d_name)
                                             : std::nullopt});
        errno = 0;
    }
    if (errno != 0)
        return cannotList(url);
    return contents;
}

Result<void> FileManager::removeItem(const QUrl& url) {
    if (auto allowed = checkConfinement(url); !allowed)
        return allowed;
    std::error_code error;
    const auto count = std::filesystem::remove_all(filePath(url), error);
    if (!error && count == 0)
        error = std::make_error_code(std::errc::no_such_file_or_directory);
    else
        tellObservers(url);
    if (error)
        return systemFailure(QStringLiteral("cannot remove ") + quoted(url), error.value());
    return {};
}

Result<void> FileManager::replaceItem(const QUrl& url, const std::filesystem::path& replacement) {
    if (auto allowed = checkConfinement(url); !allowed)
        return allowed;
    std::error_code error;
    std::filesystem::rename(replacement, filePath(url), error);
    if (error)
        return systemFailure(QStringLiteral("cannot put the file in place"), error.value());
    tellObservers(url);
    return {};
}

void FileManager::addChangeObserver(ChangeObserver observer) {
    const std::lock_guard lock(m_mutex);
    m_observers.push_back(std::move(observer));
}

void FileManager::tellObservers(const QUrl& url) const {
    std::vector<ChangeObserver> observers;
    {
        const std::lock_guard lock(m_mutex);
        observers = m_observers;
    }
    const QUrl plain = fileUrl(filePath(url));
    for (const ChangeObserver& observer : observers)
        observer(plain);
}

} // namespace reelsmith
