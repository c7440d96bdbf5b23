// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/View.h"

namespace reelsmith {

/// What an interface file of its own draws.
class ContentView : public reelsmith::View {
    Q_OBJECT
    Q_PROPERTY(QString interfaceName READ interfaceName CONSTANT)

public:
    explicit ContentView(const QString& interfaceName) : m_interfaceName(interfaceName) {}

    const QString& interfaceName() const { return m_interfaceName; }

private:
    const QString m_interfaceName;
};

} // namespace reelsmith
