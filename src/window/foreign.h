// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/ImageView.h"

#include <QtQml/qqml.h>

namespace reelsmith {

// How QML knows the classes of the layers below, which know nothing of QML.

struct ImageViewForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::ImageView)
    QML_NAMED_ELEMENT(ImageView)
    QML_UNCREATABLE("A controller's outlet")
};

} // namespace reelsmith
