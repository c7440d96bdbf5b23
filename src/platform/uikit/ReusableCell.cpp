// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/ReusableCell.h"

namespace reelsmith {

QString ReusableCell::interfaceName() const {
    return QString::fromLatin1(metaObject()->className()).section(QStringLiteral("::"), -1);
}

void ReusableCell::place(int number, const QRectF& frame) {
    if (number == m_number && frame == m_frame)
        return;
    m_number = number;
    m_frame = frame;
    emit placed();
}

void ReusableCell::putAway() {
    m_number = -1;
    setCurrent(false);
    setSelected(false);
    didEndDisplaying();
    emit placed();
}

void ReusableCell::tap() {
    if (isShown())
        emit tapped(m_number);
}

void ReusableCell::openMenu(const QPointF& contentOrigin) {
    if (isShown())
        emit menuWanted(m_number, contentOrigin);
}

} // namespace reelsmith
