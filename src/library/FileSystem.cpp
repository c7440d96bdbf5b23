// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/FileSystem.h"

#include "platform/avfoundation/TemporaryOutput.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/DocumentsFolder.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/URLs.h"

#include <QDir>
#include <QStandardPaths>
#include <algorithm>
#include <functional>

namespace reelsmith {

namespace {

QUrl folder(const QString& name) {
    return appendingPathComponent(documentsFolder(), name);
}

QList<ConvertedVideo> videos(std::vector<FileManager::Entry> entries) {
    QList<ConvertedVideo> videos;
    videos.reserve(static_cast<qsizetype>(entries.size()));
    for (FileManager::Entry& entry : entries)
        videos.append(ConvertedVideo(std::move(entry.path)));
    return videos;
}

QString downloadsLockPath() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                           QStringLiteral("/reelsmith");
    QDir().mkpath(folder);
    return folder + QStringLiteral("/downloads.lock");
}

const QString outputsName = QStringLiteral("outputs");
const QString downloadsName = QStringLiteral("downloads");
const QString firstPassName = QStringLiteral("firstPass");

} // namespace

FileSystem& FileSystem::shared() {
    static FileSystem fileSystem;
    return fileSystem;
}

void FileSystem::createFolders() {
    for (const QString& name : {outputsName, downloadsName, firstPassName})
        static_cast<void>(FileManager::defaultManager().createDirectory(folder(name)));
}

void FileSystem::clearDownloads() {
    if (!m_downloadsLock)
        m_downloadsLock = FileLock::ifFree(downloadsLockPath());
    if (!m_downloadsLock)
        return;
    FileManager& files = FileManager::defaultManager();
    const auto contents = files.contentsOfDirectory(downloadsFolder());
    if (!contents)
        return;
    for (const FileManager::Entry& entry : *contents) {
        const QUrl url = entry.url();
        console(QStringLiteral("Deleting: ") + url.toString(QUrl::FullyEncoded));
        static_cast<void>(files.removeItem(url));
    }
}

void FileSystem::removeLeftovers() {
    TemporaryOutput::removeLeftovers(documentsFolder());
    // Where outputs is a link, to a memory card say, the first sweep has not followed it.
    TemporaryOutput::removeLeftovers(outputsFolder());
}

void FileSystem::deleteVideo(const QUrl& url) {
    static_cast<void>(FileManager::defaultManager().removeItem(url));
}

std::optional<QList<ConvertedVideo>> FileSystem::convertedVideos() const {
    auto contents = FileManager::defaultManager().contentsOfDirectory(outputsFolder());
    if (!contents)
        return std::nullopt;
    return videos(std::move(*contents));
}

std::optional<QList<ConvertedVideo>> FileSystem::convertedVideosNewestFirst() const {
    auto contents = FileManager::defaultManager().contentsOfDirectory(outputsFolder(),
                                                                      FileManager::Facts::ModificationDates);
    if (!contents)
        return std::nullopt;
    std::ranges::stable_sort(*contents, std::greater(), &FileManager::Entry::modified);
    return videos(std::move(*contents));
}

QUrl FileSystem::outputsFolder() const {
    return folder(outputsName);
}

QUrl FileSystem::downloadsFolder() const {
    return folder(downloadsName);
}

} // namespace reelsmith
