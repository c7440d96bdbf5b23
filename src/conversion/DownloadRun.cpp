// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/DownloadRun.h"

#include "conversion/ProgressViewController.h"
#include "conversion/VideoConversionViewController.h"
#include "platform/foundation/Console.h"
#include "platform/uikit/UIApplication.h"

namespace reelsmith {

DownloadRun::DownloadRun(VideoConversionViewController& screen, const QUrl& address)
    : QObject(&screen), m_screen(screen), m_downloader(VideoDownloader::make(address)) {
    m_downloader->setDelegate(this);
}

void DownloadRun::start() {
    m_card = m_screen.presentProgress(ProgressViewController::DisplayMode::download, [run = QPointer(this)] {
        if (run)
            run->download();
    });
    if (m_card)
        m_card->setFile(fileName(), std::nullopt);
    else
        deleteLater();
}

void DownloadRun::download() {
    m_downloader->download([run = QPointer(this)](const VideoDownloader::DownloadResult& result) {
        if (run)
            run->end(result);
    });
}

QString DownloadRun::fileName() const {
    return m_downloader->videoURL().fileName(QUrl::FullyDecoded);
}

void DownloadRun::didUpdateProgress(double fraction) {
    if (m_screen.isShowing(m_card))
        m_card->updateProgress(fraction);
    UIApplication::shared().notify({fileName(),
                                    QStringLiteral("Downloading: %1 %").arg(static_cast<int>(fraction * 100)),
                                    UserNotification::Weight::Status});
}

void DownloadRun::didReceiveBytes(const DownloadProgress& progress) {
    if (m_screen.isShowing(m_card))
        m_card->showBytes(progress.receivedBytes, progress.expectedBytes);
}

void DownloadRun::end(const VideoDownloader::DownloadResult& result) {
    deleteLater();
    UIApplication::shared().notify(
        {fileName(), result ? QStringLiteral("Downloaded. Tap to choose a name and a quality.")
                            : QStringLiteral("The download has failed.")});
    m_screen.dismissCard(m_card, [screen = QPointer(&m_screen), card = m_card, result] {
        if (!screen)
            return;
        if (result) {
            console(QStringLiteral("Download success... Converting Video"));
            screen->chooseQuality(*result);
            return;
        }
        console(QStringLiteral("Error: ") + localizedDescription(result.error()));
        screen->dismissCard(card, [screen] {
            if (screen)
                screen->presentFailure(QStringLiteral("download"), std::nullopt);
        });
    });
}

} // namespace reelsmith
