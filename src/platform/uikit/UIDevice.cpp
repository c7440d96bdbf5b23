// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UIDevice.h"

namespace reelsmith {

UIDevice& UIDevice::current() {
    static UIDevice device;
    return device;
}

void UIDevice::setValue(const QVariant& value, const QString& key) {
    const int number = value.toInt();
    if (key != QStringLiteral("orientation") || number < static_cast<int>(UIDeviceOrientation::Portrait) ||
        number > static_cast<int>(UIDeviceOrientation::LandscapeRight))
        return;
    m_orientation = static_cast<UIDeviceOrientation>(number);
    emit orientationChanged();
}

} // namespace reelsmith
