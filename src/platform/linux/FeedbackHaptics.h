// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/Haptics.h"

#include <QDBusConnection>
#include <QString>

namespace reelsmith {

/// Haptics by the feedback daemon, which minds the user's profile (silent, quiet, full).
class FeedbackHaptics : public Haptics {
public:
    FeedbackHaptics(const QDBusConnection& sessionBus, const QString& applicationId)
        : m_bus(sessionBus), m_applicationId(applicationId) {}

    void impactOccurred() override;

private:
    QDBusConnection m_bus;
    const QString m_applicationId;
};

} // namespace reelsmith
