// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QUrl>
#include <filesystem>
#include <functional>
#include <stop_token>
#include <utility>
#include <vector>

namespace reelsmith {

/// A movie on this device.
struct FoundVideo {
    QUrl url;
    std::filesystem::file_time_type modified;
};

/// The movies that the user has: in the folders for videos and pictures, and on memory cards. Main thread,
/// except where said.
class VideoCollection {
public:
    using Completion = std::function<void(QList<QUrl> videos)>;

    /// The folders of this user and system.
    static std::vector<std::filesystem::path> folders();

    /// All movies in folders and those within, the last changed first, each once. Hidden files and folders,
    /// and what cannot be read, are passed over. Any thread.
    static std::vector<FoundVideo> find(const std::vector<std::filesystem::path>& folders,
                                        const std::stop_token& stop);

    explicit VideoCollection(std::vector<std::filesystem::path> folders) : m_folders(std::move(folders)) {}
    ~VideoCollection() { m_search.request_stop(); }
    VideoCollection(const VideoCollection&) = delete;
    VideoCollection& operator=(const VideoCollection&) = delete;

    /// Reads the folders anew, in the background; a reading under way ends without its completion.
    /// `completion` is called on the main queue, unless this object is gone by then.
    void read(Completion completion);

private:
    const std::vector<std::filesystem::path> m_folders;
    std::stop_source m_search;
};

} // namespace reelsmith
