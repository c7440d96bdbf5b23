// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/View.h"

namespace reelsmith {

/// A number to be chosen by moving a knob.
class Slider : public reelsmith::View {
    Q_OBJECT
    Q_PROPERTY(qreal value READ value NOTIFY changed)
    Q_PROPERTY(qreal maximumValue READ maximumValue NOTIFY changed)

public:
    using View::View;

    qreal value() const { return m_value; } ///< 0…maximumValue()
    void setValue(qreal value) { assign(m_value, value); }

    qreal maximumValue() const { return m_maximumValue; }
    void setMaximumValue(qreal maximum) { assign(m_maximumValue, maximum); }

private:
    qreal m_value = 0;
    qreal m_maximumValue = 1;
};

} // namespace reelsmith
