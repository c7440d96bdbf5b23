// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/UserSettings.h"

#include "platform/foundation/UserDefaults.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace reelsmith;

namespace {

class UserSettingsTest : public testing::Test {
protected:
    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(QStringLiteral("settings.conf"));
    UserDefaults m_defaults{m_path};
    UserSettings m_settings{m_defaults};
};

} // namespace

TEST_F(UserSettingsTest, AWithdrawnConsentOutlivesTheRegisteredDefault) {
    EXPECT_TRUE(m_settings.sendUsageData());
    m_settings.setSendUsageData(false);
    UserDefaults nextLaunch(m_path);
    EXPECT_FALSE(UserSettings(nextLaunch).sendUsageData());
    m_settings.setSendUsageData(true);
    EXPECT_TRUE(UserSettings(nextLaunch).sendUsageData());
}

TEST_F(UserSettingsTest, ValuesAreKeptUnderTheirFixedKeys) {
    m_settings.setSendUsageData(false);
    for (int i = 0; i < 10; ++i)
        m_settings.incrementConversionCount();
    m_settings.setAchievedSuccess(true);
    m_settings.setDidShowOnboarding(true);

    UserDefaults bare(m_path);
    EXPECT_EQ(bare.objectForKey(QStringLiteral("SEND_USAGE_DATA")), false);
    EXPECT_EQ(bare.integerForKey(QStringLiteral("Conversion_Count")), 10);
    EXPECT_TRUE(bare.boolForKey(QStringLiteral("ACHIEVED_SUCCESS")));
    EXPECT_TRUE(bare.boolForKey(QStringLiteral("DID_SHOW_ONBOARDING")));
}
