// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/WeakDelegate.h"
#include "platform/uikit/UIApplication.h"
#include "sources/VideoDownloaderDelegate.h"

#include <QUrl>
#include <functional>
#include <memory>
#include <optional>
#include <tl/expected.hpp>

namespace reelsmith {

/// Fetches one video from the web into the downloads folder, under the last component of its address; a file
/// of that name is replaced. For one download, which cannot be stopped. Main thread.
class VideoDownloader : public std::enable_shared_from_this<VideoDownloader> {
public:
    enum class DownloadError { generic };

    /// The file, which is whatever the server has answered.
    using DownloadResult = tl::expected<QUrl, DownloadError>;
    using Completion = std::function<void(const DownloadResult& result)>;

    static std::shared_ptr<VideoDownloader> make(const QUrl& videoURL);

    const QUrl& videoURL() const { return m_videoURL; }

    void setDelegate(WeakDelegate<VideoDownloaderDelegate> delegate) { m_delegate = std::move(delegate); }

    /// Starts the transfer; `completion` is called once, never before this call has returned. The transfer
    /// keeps the downloader. A system without a documents folder is a fatal error.
    void download(Completion completion);

private:
    explicit VideoDownloader(const QUrl& videoURL) : m_videoURL(videoURL) {}

    void beginBackgroundTask();
    void report(const DownloadProgress& progress) const;

    const QUrl m_videoURL;
    WeakDelegate<VideoDownloaderDelegate> m_delegate;
    std::optional<UIBackgroundTaskIdentifier> m_bgTaskID;
};

QString localizedDescription(VideoDownloader::DownloadError error);

} // namespace reelsmith
