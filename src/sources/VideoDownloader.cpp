// SPDX-License-Identifier: GPL-3.0-or-later
#include "sources/VideoDownloader.h"

#include "library/FileSystem.h"
#include "platform/foundation/OngoingWork.h"
#include "platform/foundation/URLs.h"
#include "remote/AnalyticsEvents.h"
#include "remote/ReelsmithAnalytics.h"

namespace reelsmith {

namespace {

// Bytes, as in the names of files.
std::string downloadName(const QUrl& url) {
    const QByteArray path = url.path(QUrl::FullyEncoded).toLatin1();
    return QByteArray::fromPercentEncoding(path.mid(path.lastIndexOf('/') + 1)).toStdString();
}

bool canNameFile(const std::string& component) {
    const bool isFolder = component.empty() || component == "." || component == "..";
    return !isFolder && component.find('/') == std::string::npos && component.find('\0') == std::string::npos;
}

DownloadDestination destination(const std::string& component) {
    const std::filesystem::path folder = filePath(FileSystem::shared().downloadsFolder());
    if (!canNameFile(component))
        return {};
    return {fileUrl(folder / component),
            DownloadDestination::RemovePreviousFile | DownloadDestination::CreateIntermediateDirectories};
}

void finish(const std::optional<QUrl>& fileURL, const VideoDownloader::Completion& completion) {
    if (fileURL) {
        ReelsmithAnalytics::logEvent(AnalyticsEvents::downloadSuccess);
        completion(*fileURL);
    } else {
        completion(tl::unexpected(VideoDownloader::DownloadError::generic));
        ReelsmithAnalytics::logEvent(AnalyticsEvents::downloadFailure);
    }
}

} // namespace

std::shared_ptr<VideoDownloader> VideoDownloader::make(const QUrl& videoURL) {
    return std::shared_ptr<VideoDownloader>(new VideoDownloader(videoURL));
}

void VideoDownloader::download(Completion completion) {
    const std::string component = downloadName(m_videoURL);
    beginBackgroundTask();
    HTTPClient::shared()->download(
        m_videoURL, [component] { return destination(component); },
        [self = shared_from_this()](const DownloadProgress& progress) { self->report(progress); },
        [work = std::make_shared<OngoingWork>(), completion = std::move(completion)](
            const std::optional<QUrl>& fileURL) { finish(fileURL, completion); });
}

void VideoDownloader::beginBackgroundTask() {
    // Nothing else ends the task: it outlasts the transfer until it expires.
    m_bgTaskID = UIApplication::shared().beginBackgroundTask([weak = weak_from_this()] {
        const auto self = weak.lock();
        if (self && self->m_bgTaskID)
            UIApplication::shared().endBackgroundTask(*self->m_bgTaskID);
    });
}

void VideoDownloader::report(const DownloadProgress& progress) const {
    // Each call may be the delegate's last.
    if (VideoDownloaderDelegate* const delegate = m_delegate.get())
        delegate->didReceiveBytes(progress);
    const std::optional<double> fraction = progress.fractionCompleted();
    VideoDownloaderDelegate* const delegate = m_delegate.get();
    if (fraction && delegate)
        delegate->didUpdateProgress(*fraction);
}

QString localizedDescription(VideoDownloader::DownloadError error) {
    return QStringLiteral("The operation couldn’t be completed. (VideoDownloader.DownloadError error %1.)")
        .arg(static_cast<int>(error));
}

} // namespace reelsmith
