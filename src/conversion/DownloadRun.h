// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sources/VideoDownloader.h"
#include "sources/VideoDownloaderDelegate.h"

#include <QObject>
#include <QPointer>
#include <memory>

namespace reelsmith {

class ProgressViewController;
class VideoConversionViewController;

/// One download on the convert screen, with its own card. Belongs to the screen, and ends with the download.
/// Main thread.
class DownloadRun : public QObject, public VideoDownloaderDelegate {
    Q_OBJECT

public:
    DownloadRun(VideoConversionViewController& screen, const QUrl& address);

    /// Shows the card, and downloads once it stands. Without a place for a card nothing happens.
    void start();

    void didUpdateProgress(double fraction) override;
    void didReceiveBytes(const DownloadProgress& progress) override;

private:
    void download();
    void end(const VideoDownloader::DownloadResult& result);
    QString fileName() const;

    VideoConversionViewController& m_screen;
    const std::shared_ptr<VideoDownloader> m_downloader;
    QPointer<ProgressViewController> m_card;
};

} // namespace reelsmith
