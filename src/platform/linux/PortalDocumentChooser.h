// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/PortalClient.h"
#include "platform/screens/DocumentChooser.h"

namespace reelsmith {

/// The desktop portal's file chooser.
class PortalDocumentChooser : public DocumentChooser {
public:
    explicit PortalDocumentChooser(const QDBusConnection& sessionBus)
        : m_dialog(sessionBus, QStringLiteral("FileChooser")) {
        m_dialog.ask([this](bool isThere) { m_isAvailable = isThere; });
    }

    bool isAvailable() const override { return m_isAvailable; }
    void choose(const QString& title, const QList<Kind>& kinds, Completion completion) override;
    void cancel() override { m_dialog.cancel(); }

private:
    PortalClient m_dialog;
    bool m_isAvailable = false; // as far as the portal has answered
};

} // namespace reelsmith
