// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/ReusableCell.h"

namespace reelsmith {

/// One row of a table; this one is empty.
class UITableViewCell : public reelsmith::ReusableCell {
    Q_OBJECT

public:
    using ReusableCell::ReusableCell;
};

} // namespace reelsmith
