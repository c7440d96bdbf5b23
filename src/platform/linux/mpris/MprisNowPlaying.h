// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/screens/NowPlaying.h"

#include <QDBusConnection>
#include <QString>
#include <memory>

namespace reelsmith {

/// Offers what is playing on the session bus, by the standard for media players. Without a bus nobody sees
/// it. Main thread.
class MprisNowPlaying final : public NowPlaying {
public:
    static inline const QString path = QStringLiteral("/org/mpris/MediaPlayer2");
    static inline const QString service = QStringLiteral("org.mpris.MediaPlayer2.reelsmith");

    MprisNowPlaying(const QDBusConnection& sessionBus, const QString& applicationId);
    ~MprisNowPlaying() override;

    void begin(AVPlayer& player) override;
    void end() override;

private:
    QDBusConnection m_bus;
    const QString m_applicationId;
    std::unique_ptr<QObject> m_object; // on the bus; null for none
};

} // namespace reelsmith
