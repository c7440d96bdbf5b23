// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickImageProvider>

namespace reelsmith {

/// Draws soft shadows to stretch: "image://shadow/20/1,2,0.05/3,12,0.06#1c1b18" is that of a rectangle with
/// corners of 20, made of two layers (how much lower, how blurred, how strong) in one colour. The margin
/// round the rectangle is what the widest layer reaches, and what stays unstretched is that, the radius and
/// the widest blur. Any thread.
class ShadowProvider : public QQuickImageProvider {
public:
    ShadowProvider() : QQuickImageProvider(Image) {}

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace reelsmith
