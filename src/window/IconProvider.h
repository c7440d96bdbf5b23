// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickImageProvider>

namespace reelsmith {

/// Draws the icons: "image://icon/share#0b666c" is the icon "share" in that colour, sharp at the size that is
/// asked for. Any thread.
class IconProvider : public QQuickImageProvider {
public:
    IconProvider() : QQuickImageProvider(Image) {}

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace reelsmith
