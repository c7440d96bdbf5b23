// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/Switch.h"
#include "platform/uikit/UIViewController.h"

namespace reelsmith {

/// The user's settings. Main thread.
class SettingsViewController : public reelsmith::UIViewController {
    Q_OBJECT
    Q_PROPERTY(reelsmith::Switch* sendDataSwitch READ sendDataSwitch CONSTANT)

public:
    Switch* sendDataSwitch() { return &m_sendDataSwitch; }

    /// Keeps what the switch shows.
    Q_INVOKABLE void sendDataSwitched();

protected:
    void viewDidLoad() override;

private:
    Switch m_sendDataSwitch;
};

} // namespace reelsmith
