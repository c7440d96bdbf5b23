// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/View.h"

namespace reelsmith {

/// A row of segments of which one is selected; titles are the interface file's.
class SegmentedControl : public reelsmith::View {
    Q_OBJECT
    Q_PROPERTY(
        int selectedSegmentIndex READ selectedSegmentIndex WRITE setSelectedSegmentIndex NOTIFY changed)

public:
    using View::View;

    int selectedSegmentIndex() const { return m_selectedSegmentIndex; } ///< from 0
    void setSelectedSegmentIndex(int index) { assign(m_selectedSegmentIndex, index); }

private:
    int m_selectedSegmentIndex = 0;
};

} // namespace reelsmith
