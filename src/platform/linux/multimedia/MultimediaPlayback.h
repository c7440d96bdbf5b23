// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/VideoPlayback.h"

#include <QFile>
#include <QMediaPlayer>
#include <QVideoSink>
#include <memory>

class QAudioOutput;
class QMediaDevices;

namespace reelsmith {

/// Plays with Qt Multimedia, with sound as long as there is a device for it. Its output is a QVideoSink of
/// the main thread. Main thread.
class MultimediaPlayback : public VideoPlayback {
public:
    /// Has Qt Multimedia play with FFmpeg, and give its memory back. To be called first in main(), before
    /// there are other threads.
    static void chooseEngine();

    MultimediaPlayback();
    ~MultimediaPlayback() override;

    void setSource(const QUrl& url) override;
    void seek(const CMTime& time) override;
    void play() override;
    void pause() override;
    void setMuted(bool isMuted) override;
    QObject* output() override { return &m_output; }

private:
    bool canPlay() const { return state().error.isEmpty(); }
    qint64 pictureTime() const; // in milliseconds, as these
    qint64 lastPicture() const;
    bool isReadToEnd() const;
    void open(const QUrl& url);
    void reopen();
    void followDevices();
    void attachSound();
    void statusChanged(QMediaPlayer::MediaStatus status);
    /// Tells how the player stands.
    void refresh();
    void fail(const QString& text);

    QVideoSink m_decoded; // the player's own thread is at work on it
    QVideoSink m_output;
    std::unique_ptr<QMediaDevices> m_devices;
    std::unique_ptr<QAudioOutput> m_sound; // outlives what plays on it
    QFile m_file;                          // read by the player
    QMediaPlayer m_player;
    bool m_isAtEnd = false;
    bool m_isMuted = false;
};

} // namespace reelsmith
