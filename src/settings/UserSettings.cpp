// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/UserSettings.h"

#include "platform/foundation/UserDefaults.h"

namespace reelsmith {

UserSettings& UserSettings::shared() {
    static UserSettings sharedSettings(UserDefaults::standard());
    return sharedSettings;
}

UserSettings::UserSettings(UserDefaults& userDefaults) : m_userDefaults(userDefaults) {
    m_userDefaults.registerDefaults({{sendUsageDataKey, true}});
}

bool UserSettings::sendUsageData() const {
    return m_userDefaults.boolForKey(sendUsageDataKey);
}

void UserSettings::setSendUsageData(bool value) {
    m_userDefaults.setBoolForKey(value, sendUsageDataKey);
}

qint64 UserSettings::conversionCount() const {
    return m_userDefaults.integerForKey(conversionCountKey);
}

void UserSettings::incrementConversionCount() {
    m_userDefaults.incrementIntegerForKey(conversionCountKey);
}

bool UserSettings::achievedSuccess() const {
    return m_userDefaults.boolForKey(achievedSuccessKey);
}

void UserSettings::setAchievedSuccess(bool value) {
    m_userDefaults.setBoolForKey(value, achievedSuccessKey);
}

bool UserSettings::didShowOnboarding() const {
    return m_userDefaults.boolForKey(didShowOnboardingKey);
}

void UserSettings::setDidShowOnboarding(bool value) {
    m_userDefaults.setBoolForKey(value, didShowOnboardingKey);
}

} // namespace reelsmith
