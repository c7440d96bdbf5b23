// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace reelsmith {

/// Keeps the text field in focus above the on-screen keyboard. The window does the moving. Main thread.
class KeyboardManager : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isEnabled READ isEnabled NOTIFY isEnabledChanged)

public:
    static KeyboardManager& shared() {
        static KeyboardManager manager;
        return manager;
    }

    bool isEnabled() const { return m_isEnabled; }
    void setEnabled(bool enabled) {
        m_isEnabled = enabled;
        emit isEnabledChanged();
    }

signals:
    void isEnabledChanged();

private:
    bool m_isEnabled = false;
};

} // namespace reelsmith
