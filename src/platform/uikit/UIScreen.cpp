// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UIScreen.h"

#include <algorithm>

namespace reelsmith {

namespace {

constexpr qreal widestColumn = 480;
constexpr qreal shorterSideOfTablet = 700;

qreal shorterSide(const QSizeF& size) {
    return std::min(size.width(), size.height());
}

} // namespace

UIScreen& UIScreen::main() {
    static UIScreen screen;
    return screen;
}

void UIScreen::setWindowSize(const QSizeF& size) {
    if (size == m_window)
        return;
    m_window = size;
    emit sizeChanged();
}

QSizeF UIScreen::size() const {
    return {std::min(shorterSide(m_window), widestColumn), m_window.height()};
}

bool UIScreen::isTabletClass() const {
    return shorterSide(m_window) >= shorterSideOfTablet;
}

} // namespace reelsmith
