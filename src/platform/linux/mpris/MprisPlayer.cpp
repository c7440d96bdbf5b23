// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/mpris/MprisPlayer.h"

#include "platform/linux/mpris/MprisNowPlaying.h"

#include <QDBusMessage>
#include <algorithm>
#include <limits>

namespace reelsmith {

namespace {

using std::chrono::microseconds;

constexpr int microsecondsPerSecond = 1'000'000;

QDBusObjectPath trackId() {
    return QDBusObjectPath(QStringLiteral("/io/reelsmith/Reelsmith/track"));
}

} // namespace

MprisPlayer::MprisPlayer(QObject& object, const QDBusConnection& bus, AVPlayer& player)
    : QDBusAbstractAdaptor(&object), m_bus(bus), m_player(player), m_told(toldProperties()) {
    connect(&player, &AVPlayer::changed, this, &MprisPlayer::tellChanges);
    connect(&player, &AVPlayer::sought, this, [this] { emit Seeked(position()); });
}

QString MprisPlayer::playbackStatus() const {
    if (!canPlay())
        return QStringLiteral("Stopped");
    return m_player.state().isPlaying ? QStringLiteral("Playing") : QStringLiteral("Paused");
}

QVariantMap MprisPlayer::metadata() const {
    return {{QStringLiteral("mpris:trackid"), QVariant::fromValue(trackId())},
            {QStringLiteral("mpris:length"), length()},
            {QStringLiteral("xesam:title"), m_player.currentItem().url.fileName()}};
}

qlonglong MprisPlayer::position() const {
    return microseconds(m_player.state().position).count();
}

qlonglong MprisPlayer::length() const {
    return microseconds(m_player.state().duration).count();
}

void MprisPlayer::Play() {
    m_player.play();
}

void MprisPlayer::Pause() {
    m_player.pause();
}

void MprisPlayer::PlayPause() {
    if (m_player.state().isPlaying)
        m_player.pause();
    else
        m_player.play();
}

void MprisPlayer::Stop() {
    m_player.pause();
    seekTo(0);
}

void MprisPlayer::Seek(qlonglong offset) {
    // Half of all numbers is far enough for any film, and does not overflow.
    constexpr qlonglong farthest = std::numeric_limits<qlonglong>::max() / 2;
    seekTo(position() + std::clamp(offset, -farthest, farthest));
}

void MprisPlayer::SetPosition(const QDBusObjectPath& track, qlonglong position) {
    // Meant for another video, or for none.
    if (track != trackId() || position < 0 || position > length())
        return;
    seekTo(position);
}

void MprisPlayer::seekTo(qlonglong position) {
    if (canSeek())
        m_player.seek({std::clamp<qlonglong>(position, 0, length()), microsecondsPerSecond});
}

QVariantMap MprisPlayer::toldProperties() const {
    return {{QStringLiteral("PlaybackStatus"), playbackStatus()},
            {QStringLiteral("Metadata"), metadata()},
            {QStringLiteral("Volume"), volume()},
            {QStringLiteral("CanPlay"), canPlay()},
            {QStringLiteral("CanPause"), canPlay()},
            {QStringLiteral("CanSeek"), canSeek()}};
}

void MprisPlayer::tellChanges() {
    const QVariantMap now = toldProperties();
    QVariantMap changes;
    for (auto property = now.begin(); property != now.end(); ++property) {
        if (m_told.value(property.key()) != property.value())
            changes.insert(property.key(), property.value());
    }
    m_told = now;
    if (changes.isEmpty())
        return;
    QDBusMessage signal =
        QDBusMessage::createSignal(MprisNowPlaying::path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                   QStringLiteral("PropertiesChanged"));
    signal << QStringLiteral("org.mpris.MediaPlayer2.Player") << changes << QStringList();
    m_bus.send(signal);
}

} // namespace reelsmith
