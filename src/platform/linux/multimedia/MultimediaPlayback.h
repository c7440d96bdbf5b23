// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/VideoPlayback.h"

#include <QMediaPlayer>
#include <QVideoSink>

namespace reelsmith {

/// Plays with Qt Multimedia, without sound. Its output is a QVideoSink. Main thread.
class MultimediaPlayback : public VideoPlayback {
public:
    /// Has Qt Multimedia play with FFmpeg. To be called first in main(), before there are other threads.
    static void chooseEngine() { qputenv("QT_MEDIA_BACKEND", "ffmpeg"); }

    MultimediaPlayback();

    void setSource(const QUrl& url) override;
    void seek(const CMTime& time) override;
    void play() override;
    QObject* output() override { return &m_sink; }

private:
    QVideoSink m_sink;
    QMediaPlayer m_player;
};

} // namespace reelsmith
