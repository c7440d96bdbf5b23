// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/UserDefaults.h"

#include "platform/services/StateFile.h"
#include "settings/UserSettings.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <sys/resource.h>
#include <thread>
#include <vector>

using namespace reelsmith;

namespace {

const QString key = QStringLiteral("Key");

class UserDefaultsTest : public testing::Test {
protected:
    QByteArray stored() const { return StateFile(m_path).read().value_or(QByteArray()); }

    std::unique_ptr<QProcess> incrementInAnotherProcess(const QString& name, int count) const {
        auto process = std::make_unique<QProcess>();
        process->setProcessChannelMode(QProcess::ForwardedChannels);
        process->start(QCoreApplication::applicationFilePath(),
                       {QStringLiteral("--increment"), m_path, name, QString::number(count)});
        return process;
    }

    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(QStringLiteral("settings.conf"));
    UserDefaults m_defaults{m_path};
};

} // namespace

TEST_F(UserDefaultsTest, TheUsersSettingsAreKeptUnderTheirFixedKeysAndNoDefaultIs) {
    UserSettings settings(m_defaults);
    EXPECT_TRUE(settings.sendUsageData());
    EXPECT_EQ(stored(), "");
    settings.setSendUsageData(false);
    EXPECT_FALSE(settings.sendUsageData());
    settings.incrementConversionCount();
    settings.setAchievedSuccess(true);
    settings.setDidShowOnboarding(true);
    EXPECT_EQ(stored(), "[General]\nACHIEVED_SUCCESS=true\nConversion_Count=1\n"
                        "DID_SHOW_ONBOARDING=true\nSEND_USAGE_DATA=false\n");
}

TEST_F(UserDefaultsTest, ADamagedFileReadsAsEmptyAndTakesTheNextWrite) {
    const QByteArray damages[] = {QByteArray(64, '\0'),
                                  "Key",
                                  "[General\nKey=",
                                  "[General]\nKey=@Variant(\\0\\x1\n",
                                  "[General]\nKey=nonsense\n",
                                  "\xff\xfe\x01=\x02[[]=\n"};
    for (const QByteArray& damage : damages) {
        SCOPED_TRACE(damage.toStdString());
        ASSERT_TRUE(StateFile(m_path).replace(damage));
        UserDefaults defaults(m_path);
        defaults.registerDefaults({{key, 7}});
        EXPECT_EQ(defaults.integerForKey(key), 7);
        EXPECT_FALSE(m_defaults.boolForKey(key));
        EXPECT_EQ(m_defaults.incrementIntegerForKey(key), 1);
        EXPECT_EQ(defaults.integerForKey(key), 1);
    }
}

TEST_F(UserDefaultsTest, AWriteThatFailsLeavesTheFileAsItWas) {
    m_defaults.setIntegerForKey(4, key);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit usual{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &usual), 0);
    const rlimit nothing{0, usual.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &nothing), 0);
    m_defaults.setIntegerForKey(5, key);
    setrlimit(RLIMIT_FSIZE, &usual);
    EXPECT_EQ(stored(), "[General]\nKey=4\n");
}

// Other processes know a changed file by it.
TEST_F(UserDefaultsTest, EachWriteGivesTheFileALaterTime) {
    QDateTime before;
    for (qint64 value = 10; value < 30; ++value) {
        m_defaults.setIntegerForKey(value, key);
        const QDateTime after = QFileInfo(m_path).lastModified();
        EXPECT_TRUE(!before.isValid() || after > before);
        before = after;
    }
}

TEST_F(UserDefaultsTest, NoIncrementIsLostBetweenThreadsAndProcessesOnOneKeyOrOnSeveral) {
    constexpr int count = 80;
    const auto same = incrementInAnotherProcess(key, count);
    const auto other = incrementInAnotherProcess(QStringLiteral("Other"), count);
    std::vector<std::jthread> threads;
    for (int i = 0; i < 2; ++i)
        threads.emplace_back([this] {
            UserDefaults own(m_path);
            for (int n = 0; n < 25; ++n) {
                m_defaults.incrementIntegerForKey(key);
                own.incrementIntegerForKey(key);
            }
        });
    threads.clear();
    for (QProcess* process : {same.get(), other.get()}) {
        ASSERT_TRUE(process->waitForFinished());
        ASSERT_EQ(process->exitCode(), 0);
    }
    EXPECT_EQ(m_defaults.integerForKey(key), 100 + count);
    EXPECT_EQ(m_defaults.integerForKey(QStringLiteral("Other")), count);
}

using UserDefaultsDeathTest = UserDefaultsTest;

TEST_F(UserDefaultsDeathTest, IncrementingTheGreatestIntegerStopsTheProcess) {
    m_defaults.setIntegerForKey(std::numeric_limits<qint64>::max(), key);
    EXPECT_DEATH(m_defaults.incrementIntegerForKey(key), "Fatal error: Integer overflow");
}
