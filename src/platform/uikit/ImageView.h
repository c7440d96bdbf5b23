// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/UIImage.h"
#include "platform/uikit/View.h"

namespace reelsmith {

/// A place for a picture.
class ImageView : public reelsmith::View {
    Q_OBJECT

public:
    using View::View;

    const UIImage& image() const { return m_image; } ///< may be empty
    void setImage(const UIImage& image) {
        m_image = image;
        emit changed();
    }

private:
    UIImage m_image;
};

} // namespace reelsmith
