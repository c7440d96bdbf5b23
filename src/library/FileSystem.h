// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/ConvertedVideo.h"
#include "platform/foundation/FileLock.h"

#include <QList>
#include <QUrl>
#include <memory>
#include <optional>

namespace reelsmith {

/// The store of the documents folder: what is in its folders is all there is, read anew each time.
/// Failures are passed over, but a system without a documents folder is a fatal error.
class FileSystem {
public:
    static FileSystem& shared();

    /// Makes the folders "outputs", "downloads" and "firstPass" where they are missing.
    void createFolders();

    /// Removes all visible files of the downloads folder, unless they may belong to another window, one that
    /// runs on its own.
    void clearDownloads();

    /// Removes what killed conversions and downloads have left half made.
    void removeLeftovers();

    void deleteVideo(const QUrl& url);

    /// The visible entries of the outputs folder, in the file system's order. No answer, which is not an
    /// empty one, when the folder cannot be listed.
    std::optional<QList<ConvertedVideo>> convertedVideos() const;

    /// The same, the one last written to first. What has no date that can be read is taken for the oldest.
    std::optional<QList<ConvertedVideo>> convertedVideosNewestFirst() const;

    QUrl outputsFolder() const;
    QUrl downloadsFolder() const;

private:
    FileSystem() = default;

    std::unique_ptr<FileLock> m_downloadsLock; // from the first clearing on
};

} // namespace reelsmith
