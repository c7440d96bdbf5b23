// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/multimedia/MultimediaPlayback.h"

#include "platform/foundation/URLs.h"

#include <QAudioDevice>
#include <QAudioOutput>
#include <QMediaDevices>
#include <QMediaMetaData>
#include <QtMath>
#include <algorithm>
#include <fcntl.h>
#include <malloc.h>

namespace reelsmith {

using std::chrono::milliseconds;

void MultimediaPlayback::chooseEngine() {
    qputenv("QT_MEDIA_BACKEND", "ffmpeg");
#ifdef __GLIBC__
    // It has many threads that take large blocks, of which the C library would keep some for each of them: in
    // time hundreds of megabytes.
    constexpr int pools = 2;
    constexpr int keptBytes = 128 * 1024;
    mallopt(M_ARENA_MAX, pools);
    mallopt(M_TRIM_THRESHOLD, keptBytes);
#endif
}

MultimediaPlayback::MultimediaPlayback() {
    // A player that gets its sink only while it plays hands out no pictures.
    m_player.setVideoSink(&m_decoded);
    // The player holds its lock while it hands out a picture: nobody may linger over one there.
    QObject::connect(&m_decoded, &QVideoSink::videoFrameChanged, &m_output, &QVideoSink::setVideoFrame,
                     Qt::QueuedConnection);
    const auto refresh = [this] { this->refresh(); };
    QObject::connect(&m_player, &QMediaPlayer::playbackStateChanged, &m_player, refresh);
    QObject::connect(&m_player, &QMediaPlayer::positionChanged, &m_player, refresh);
    QObject::connect(&m_player, &QMediaPlayer::durationChanged, &m_player, refresh);
    QObject::connect(&m_player, &QMediaPlayer::mediaStatusChanged, &m_player,
                     [this](auto status) { statusChanged(status); });
    QObject::connect(&m_player, &QMediaPlayer::errorOccurred, &m_player,
                     [this](auto /*error*/, const QString& text) { fail(text); });
}

MultimediaPlayback::~MultimediaPlayback() {
    // What goes on while the player ends is nobody's concern.
    m_player.disconnect();
}

void MultimediaPlayback::setSource(const QUrl& url) {
    m_isAtEnd = false;
    setState({});
    open(url);
    if (canPlay() && !m_player.hasVideo() && !m_player.hasAudio())
        fail(QStringLiteral("There is nothing in the file that can be shown or heard"));
}

// By itself the player copies a resource into a file, which stays behind when the application is killed, and
// takes the name of a file for Latin-1.
void MultimediaPlayback::open(const QUrl& url) {
    m_player.setSource({});
    m_file.close();
    // The player tells of one that is not there.
    if (url.scheme() == QLatin1String("qrc")) {
        m_file.setFileName(QLatin1Char(':') + url.path());
        static_cast<void>(m_file.open(QIODevice::ReadOnly));
    } else if (const int descriptor = ::open(filePath(url).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
               descriptor >= 0) {
        static_cast<void>(m_file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
    }
    m_player.setSourceDevice(&m_file, url);
}

void MultimediaPlayback::seek(const CMTime& time) {
    if (!canPlay())
        return;
    const qint64 target = std::clamp<qint64>(qRound64(time.seconds() * 1000), 0, lastPicture());
    if (isReadToEnd()) {
        const bool wasPlaying = state().isPlaying;
        reopen();
        m_player.setPosition(target);
        wasPlaying ? m_player.play() : m_player.pause();
    } else {
        m_player.setPosition(target);
    }
    refresh();
}

// Once the engine has read the last of a file it hands out nothing from anywhere else. It reads ahead: what a
// decoder holds back, and a little more.
bool MultimediaPlayback::isReadToEnd() const {
    constexpr int heldBackPictures = 32;
    constexpr qint64 littleMore = 500;
    return m_isAtEnd ||
           m_player.position() + heldBackPictures * pictureTime() + littleMore >= m_player.duration();
}

void MultimediaPlayback::reopen() {
    const QSignalBlocker quiet(&m_player);
    open(m_player.source());
    m_isAtEnd = false;
    if (m_player.error() != QMediaPlayer::NoError)
        fail(m_player.errorString());
}

qint64 MultimediaPlayback::pictureTime() const {
    constexpr double usualRate = 25;
    const double rate = m_player.metaData().value(QMediaMetaData::VideoFrameRate).toDouble();
    return qCeil(1000 / (rate > 0 ? rate : usualRate));
}

// Past the last picture there is none to be shown, and nothing to go on playing from.
qint64 MultimediaPlayback::lastPicture() const {
    return std::max<qint64>(0, m_player.duration() - pictureTime());
}

void MultimediaPlayback::play() {
    if (!canPlay())
        return;
    followDevices();
    if (m_isAtEnd)
        reopen();
    m_player.play();
}

void MultimediaPlayback::pause() {
    if (!canPlay() || m_isAtEnd)
        return;
    followDevices();
    m_player.pause();
}

void MultimediaPlayback::setMuted(bool isMuted) {
    m_isMuted = isMuted;
    if (m_sound)
        m_sound->setMuted(isMuted);
    refresh();
}

// Not before it is needed: the first look takes the way to the sound server.
void MultimediaPlayback::followDevices() {
    if (m_devices || !m_player.hasAudio())
        return;
    m_devices = std::make_unique<QMediaDevices>();
    QObject::connect(m_devices.get(), &QMediaDevices::audioOutputsChanged, &m_player,
                     [this] { attachSound(); });
    attachSound();
}

// The engine must not be given an output without a device.
void MultimediaPlayback::attachSound() {
    const bool hasDevice = !QMediaDevices::audioOutputs().isEmpty();
    if (hasDevice && !m_sound) {
        m_sound = std::make_unique<QAudioOutput>();
        m_sound->setMuted(m_isMuted);
        m_player.setAudioOutput(m_sound.get());
    } else if (!hasDevice && m_sound) {
        m_player.setAudioOutput(nullptr);
        m_sound.reset();
    }
    refresh();
}

void MultimediaPlayback::statusChanged(QMediaPlayer::MediaStatus status) {
    if (status != QMediaPlayer::EndOfMedia)
        return;
    m_isAtEnd = true;
    refresh();
}

void MultimediaPlayback::refresh() {
    PlaybackState now = state();
    now.isPlaying = !m_isAtEnd && m_player.playbackState() == QMediaPlayer::PlayingState;
    now.hasSound = m_sound != nullptr;
    now.isMuted = m_isMuted;
    now.duration = milliseconds(m_player.duration());
    now.position = m_isAtEnd ? now.duration : qMin(milliseconds(m_player.position()), now.duration);
    setState(now);
}

void MultimediaPlayback::fail(const QString& text) {
    PlaybackState failed;
    failed.error = text;
    setState(failed);
}

} // namespace reelsmith
