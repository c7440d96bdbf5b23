// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/PortalAppearance.h"

#include "platform/linux/bus/BusCall.h"
#include "platform/linux/bus/PortalRequest.h"

#include <QDBusArgument>
#include <QMap>
#include <QStringList>
#include <QVariantMap>
#include <algorithm>
#include <utility>

namespace reelsmith {

namespace {

const QString portalGroup = QStringLiteral("org.freedesktop.appearance");
const QString desktopGroup = QStringLiteral("org.gnome.desktop.interface");
const QString accessibilityGroup = QStringLiteral("org.gnome.desktop.a11y.interface");
constexpr double smallestTextScale = 0.5;
constexpr double largestTextScale = 3;
constexpr uint prefersDark = 1;
constexpr uint prefersHighContrast = 1;

} // namespace

PortalAppearance::PortalAppearance(const QDBusConnection& sessionBus) : m_bus(sessionBus) {
    // Unknown by name until the first variant has come, and a slot that takes one cannot be connected before.
    qRegisterMetaType<QDBusVariant>();
    const QDBusMessage portal = PortalRequest::message({}, {});
    m_bus.connect(portal.service(), portal.path(), PortalRequest::interfaceName(QStringLiteral("Settings")),
                  QStringLiteral("SettingChanged"), this,
                  SLOT(settingChanged(QString, QString, QDBusVariant)));
    read();
}

void PortalAppearance::setObserver(Observer observer) {
    m_observer = std::move(observer);
    if (m_isAnswered)
        QMetaObject::invokeMethod(this, &PortalAppearance::tell, Qt::QueuedConnection);
}

void PortalAppearance::read() {
    QDBusMessage question = PortalRequest::message(PortalRequest::interfaceName(QStringLiteral("Settings")),
                                                   QStringLiteral("ReadAll"));
    question << QStringList{portalGroup, desktopGroup, accessibilityGroup};
    callBus(m_bus, question, this, [this](const QDBusMessage& reply) {
        QMap<QString, QVariantMap> groups;
        if (reply.type() == QDBusMessage::ReplyMessage)
            reply.arguments().value(0).value<QDBusArgument>() >> groups;
        for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
            for (auto entry = group->cbegin(); entry != group->cend(); ++entry)
                take(group.key(), entry.key(), entry.value());
        }
        m_isAnswered = true;
        tell();
    });
}

void PortalAppearance::settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
    const Settings before = m_settings;
    take(group, key, value.variant());
    if (m_isAnswered && m_settings != before)
        tell();
}

void PortalAppearance::take(const QString& group, const QString& key, const QVariant& value) {
    if (group == portalGroup && key == QLatin1String("color-scheme"))
        m_settings.isDark = value.toUInt() == prefersDark;
    else if (group == portalGroup && key == QLatin1String("contrast"))
        m_settings.hasHighContrast = value.toUInt() == prefersHighContrast;
    // The same wish, for portals that do not have it among their own.
    else if (group == accessibilityGroup && key == QLatin1String("high-contrast"))
        m_settings.hasHighContrast = value.toBool();
    else if (group == desktopGroup && key == QLatin1String("text-scaling-factor"))
        m_settings.textScale = std::clamp(value.toDouble(), smallestTextScale, largestTextScale);
    else if (group == desktopGroup && key == QLatin1String("enable-animations"))
        m_settings.isStill = !value.toBool();
}

void PortalAppearance::tell() const {
    if (m_observer)
        m_observer();
}

} // namespace reelsmith
