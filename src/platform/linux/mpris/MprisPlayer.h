// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/AVPlayer.h"

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QVariantMap>

namespace reelsmith {

/// A player as other programs know and steer it by the standard for media players; it tells them what
/// changes. Times are in microseconds. Main thread.
class MprisPlayer : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(double Rate READ rate WRITE setRate)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ volume WRITE setVolume)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(double MinimumRate READ rate)
    Q_PROPERTY(double MaximumRate READ rate)
    Q_PROPERTY(bool CanGoNext READ no)
    Q_PROPERTY(bool CanGoPrevious READ no)
    Q_PROPERTY(bool CanPlay READ canPlay)
    Q_PROPERTY(bool CanPause READ canPlay)
    Q_PROPERTY(bool CanSeek READ canSeek)
    Q_PROPERTY(bool CanControl READ yes)

public:
    /// `object` is what is on `bus`, and owns this; `player` must outlive it.
    MprisPlayer(QObject& object, const QDBusConnection& bus, AVPlayer& player);

    QString playbackStatus() const;
    double rate() const { return 1; }
    void setRate(double) {} // only one is offered
    QVariantMap metadata() const;
    double volume() const { return m_player.state().isMuted ? 0 : 1; }
    void setVolume(double volume) { m_player.setMuted(volume <= 0); }
    qlonglong position() const;
    bool canPlay() const { return m_player.state().error.isEmpty(); }
    bool canSeek() const { return m_player.state().duration.count() > 0; }
    bool no() const { return false; }
    bool yes() const { return true; }

public slots:
    void Play();
    void Pause();
    void PlayPause();
    void Stop();
    void Seek(qlonglong offset);
    void SetPosition(const QDBusObjectPath& track, qlonglong position);

    // There is one video.
    void Next() {}
    void Previous() {}
    void OpenUri(const QString&) {}

signals:
    void Seeked(qlonglong position);

private:
    /// Those that others are told of; not the position, which would never end.
    QVariantMap toldProperties() const;
    void tellChanges();
    qlonglong length() const;
    void seekTo(qlonglong position);

    QDBusConnection m_bus;
    AVPlayer& m_player;
    QVariantMap m_told;
};

} // namespace reelsmith
