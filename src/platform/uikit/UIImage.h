// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/CGImage.h"

#include <QSize>
#include <QString>
#include <utility>

namespace reelsmith {

/// A picture for showing; may be empty. A cheap copy.
class UIImage {
public:
    UIImage() = default;
    explicit UIImage(CGImage image) : m_image(std::move(image)) {}

    /// One of the application's own pictures, which the interface draws.
    static UIImage named(const QString& name) {
        UIImage image;
        image.m_name = name;
        return image;
    }

    const QString& name() const { return m_name; } ///< empty unless it is one of the application's own
    bool isEmpty() const { return m_image.pixels.isEmpty() && m_name.isEmpty(); }
    QSize size() const { return {m_image.width, m_image.height}; } ///< in pixels
    const CGImage& cgImage() const { return m_image; }

private:
    CGImage m_image;
    QString m_name;
};

} // namespace reelsmith
