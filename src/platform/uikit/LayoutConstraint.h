// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/View.h"

namespace reelsmith {

/// A distance of a layout that its controller may change.
class LayoutConstraint : public reelsmith::View {
    Q_OBJECT
    Q_PROPERTY(qreal constant READ constant NOTIFY changed)

public:
    explicit LayoutConstraint(qreal constant, QObject* parent = nullptr)
        : View(parent), m_constant(constant) {}

    qreal constant() const { return m_constant; } ///< in points
    void setConstant(qreal constant) { assign(m_constant, constant); }

private:
    qreal m_constant;
};

} // namespace reelsmith
