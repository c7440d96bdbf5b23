// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <utility>

namespace reelsmith {

/// The application as other programs know it by the standard for media players. Main thread.
class MprisRoot : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ no)
    Q_PROPERTY(bool CanRaise READ no)
    Q_PROPERTY(bool HasTrackList READ no)
    Q_PROPERTY(QString Identity READ identity)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry)
    Q_PROPERTY(QStringList SupportedUriSchemes READ none)
    Q_PROPERTY(QStringList SupportedMimeTypes READ none)

public:
    /// `object` is what is on the bus, and owns this.
    MprisRoot(QObject& object, QString applicationId)
        : QDBusAbstractAdaptor(&object), m_applicationId(std::move(applicationId)) {}

    bool no() const { return false; }
    QString identity() const { return QStringLiteral("Reelsmith"); }
    const QString& desktopEntry() const { return m_applicationId; }
    QStringList none() const { return {}; }

public slots:
    // Not offered; see the properties.
    void Raise() {}
    void Quit() {}

private:
    const QString m_applicationId;
};

} // namespace reelsmith
