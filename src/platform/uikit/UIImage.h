// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/CGImage.h"

#include <QSize>
#include <utility>

namespace reelsmith {

/// A picture for showing; may be empty. A cheap copy.
class UIImage {
public:
    UIImage() = default;
    explicit UIImage(CGImage image) : m_image(std::move(image)) {}

    bool isEmpty() const { return m_image.pixels.isEmpty(); }
    QSize size() const { return {m_image.width, m_image.height}; } ///< in pixels
    const CGImage& cgImage() const { return m_image; }

private:
    CGImage m_image;
};

} // namespace reelsmith
