// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/ReusableCell.h"

namespace reelsmith {

/// One tile of a collection; this one is empty.
class UICollectionViewCell : public reelsmith::ReusableCell {
    Q_OBJECT

public:
    using ReusableCell::ReusableCell;
};

} // namespace reelsmith
