// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

namespace reelsmith {

class SingleInstance;

/// What other programs call an application by: hands the calls on to the instance.
class ApplicationInterface : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationInterface(SingleInstance& instance);

public slots:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& urls, const QVariantMap& platformData);

    /// There are no actions to name; a caller that knows others is not told off.
    void ActivateAction(const QString& name, const QVariantList& parameter, const QVariantMap& platformData);

private:
    SingleInstance& m_instance;
};

} // namespace reelsmith
