// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingsViewController.h"

#include "settings/UserSettings.h"

namespace reelsmith {

void SettingsViewController::viewDidLoad() {
    setTitle(QStringLiteral("Settings"));
    m_sendDataSwitch.setOn(UserSettings::shared().sendUsageData());
}

void SettingsViewController::sendDataSwitched() {
    UserSettings::shared().setSendUsageData(m_sendDataSwitch.isOn());
}

} // namespace reelsmith
