// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

/// The place of an item in a collection, or of a row in a table.
struct IndexPath {
    int section = 0;
    int item = 0;

    int row() const { return item; }
    bool operator==(const IndexPath&) const = default;
};

} // namespace reelsmith
