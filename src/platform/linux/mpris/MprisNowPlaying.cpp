// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/mpris/MprisNowPlaying.h"

#include "platform/linux/mpris/MprisPlayer.h"
#include "platform/linux/mpris/MprisRoot.h"

namespace reelsmith {

MprisNowPlaying::MprisNowPlaying(const QDBusConnection& sessionBus, const QString& applicationId)
    : m_bus(sessionBus), m_applicationId(applicationId) {}

MprisNowPlaying::~MprisNowPlaying() {
    end();
}

void MprisNowPlaying::begin(AVPlayer& player) {
    end();
    if (!m_bus.isConnected())
        return;
    m_object = std::make_unique<QObject>();
    new MprisRoot(*m_object, m_applicationId);
    new MprisPlayer(*m_object, m_bus, player);
    // The object first: a call may come as soon as the name is ours.
    m_bus.registerObject(path, m_object.get(), QDBusConnection::ExportAdaptors);
    m_bus.registerService(service);
}

void MprisNowPlaying::end() {
    if (!m_object)
        return;
    m_bus.unregisterService(service);
    m_bus.unregisterObject(path);
    m_object.reset();
}

} // namespace reelsmith
