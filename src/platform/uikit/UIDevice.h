// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QVariant>

namespace reelsmith {

/// Which way up the device is held; a desktop stands upright until somebody turns what it shows.
enum class UIDeviceOrientation { Unknown, Portrait, PortraitUpsideDown, LandscapeLeft, LandscapeRight };

/// The device that the application runs on. Main thread.
class UIDevice : public QObject {
    Q_OBJECT

public:
    static UIDevice& current();

    UIDeviceOrientation orientation() const { return m_orientation; }
    bool isLandscape() const { return m_orientation >= UIDeviceOrientation::LandscapeLeft; }

    /// By name; only "orientation" is known, a number of UIDeviceOrientation. Others are passed over.
    void setValue(const QVariant& value, const QString& key);

signals:
    /// The orientation has been set, even if to what it was: what is allowed may have changed.
    void orientationChanged();

private:
    UIDeviceOrientation m_orientation = UIDeviceOrientation::Portrait;
};

} // namespace reelsmith
