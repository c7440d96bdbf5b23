// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace reelsmith {

class UserDefaults;

/// The user's lasting preferences. Each read and write goes to the store at once. Any thread.
class UserSettings {
public:
    static inline const QString sendUsageDataKey = QStringLiteral("SEND_USAGE_DATA");
    static inline const QString conversionCountKey = QStringLiteral("Conversion_Count");
    static inline const QString achievedSuccessKey = QStringLiteral("ACHIEVED_SUCCESS");
    static inline const QString didShowOnboardingKey = QStringLiteral("DID_SHOW_ONBOARDING");

    /// The application's preferences, on the standard store.
    static UserSettings& shared();

    /// Preferences on `userDefaults`, which must outlive them. Registers the consent's default.
    explicit UserSettings(UserDefaults& userDefaults);

    /// The consent to usage data; true until the user decides.
    bool sendUsageData() const;
    void setSendUsageData(bool value);

    /// How many conversions have succeeded.
    qint64 conversionCount() const;

    /// Counts one more, whatever other processes count meanwhile. An overflow is a fatal error.
    void incrementConversionCount();

    /// Whether the user has once given a high rating.
    bool achievedSuccess() const;
    void setAchievedSuccess(bool value);

    bool didShowOnboarding() const;
    void setDidShowOnboarding(bool value);

private:
    UserDefaults& m_userDefaults;
};

} // namespace reelsmith
