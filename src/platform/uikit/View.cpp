// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/View.h"

namespace reelsmith {

void View::setHidden(bool hidden) {
    assign(m_isHidden, hidden);
}

void View::setEnabled(bool enabled) {
    assign(m_isEnabled, enabled);
}

void View::setBorder(qreal width, const QString& colorName) {
    assign(m_borderWidth, width);
    assign(m_borderColorName, colorName);
}

} // namespace reelsmith
