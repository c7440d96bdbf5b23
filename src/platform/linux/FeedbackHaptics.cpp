// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/FeedbackHaptics.h"

#include <QDBusMessage>
#include <QVariantMap>

namespace reelsmith {

void FeedbackHaptics::impactOccurred() {
    constexpr int asLongAsItTakes = -1;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.sigxcpu.Feedback"), QStringLiteral("/org/sigxcpu/Feedback"),
        QStringLiteral("org.sigxcpu.Feedback"), QStringLiteral("TriggerFeedback"));
    call << m_applicationId << QStringLiteral("button-pressed") << QVariantMap() << asLongAsItTakes;
    m_bus.send(call);
}

} // namespace reelsmith
