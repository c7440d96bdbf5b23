// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/DesktopAppearance.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QVariant>

namespace reelsmith {

/// The user's wishes as the desktop portal knows them, followed as they change.
class PortalAppearance : public QObject, public DesktopAppearance {
    Q_OBJECT

public:
    explicit PortalAppearance(const QDBusConnection& sessionBus);

    void setObserver(Observer observer) override;

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void read();
    void take(const QString& group, const QString& key, const QVariant& value);
    void tell() const;

    QDBusConnection m_bus;
    Observer m_observer;
    bool m_isAnswered = false;
};

} // namespace reelsmith
