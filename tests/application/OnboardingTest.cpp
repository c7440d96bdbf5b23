// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "settings/OnboardingViewControllerV2.h"
#include "settings/UserSettings.h"

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

/// Notes what it is to play.
class NotedPlayback : public VideoPlayback {
public:
    explicit NotedPlayback(QStringList& log) : m_log(log) {}

    void setSource(const QUrl& url) override { m_log.append(url.fileName()); }
    void seek(const CMTime& time) override { m_log.append(QString::number(time.seconds())); }
    void play() override { m_log.append(u"play"_s); }

private:
    QStringList& m_log;
};

class CountedHaptics : public Haptics {
public:
    explicit CountedHaptics(int& count) : m_count(count) {}

    void impactOccurred() override { ++m_count; }

private:
    int& m_count;
};

/// A first start, before anything is done.
class Onboarding : public WholeApplicationTest {
protected:
    Onboarding() {
        UserSettings::shared().setDidShowOnboarding(false);
        AVPlayer::setPlaybackFactory([this] { return std::make_unique<NotedPlayback>(m_played); });
        UIImpactFeedbackGenerator::setHaptics(std::make_unique<CountedHaptics>(m_impacts));
    }
    ~Onboarding() override { UIImpactFeedbackGenerator::setHaptics(std::make_unique<Haptics>()); }

    QStringList m_played;
    int m_impacts = 0;
};

} // namespace

TEST_F(Onboarding, ThreeTapsLeadFromTheFirstPageToTheTabBar) {
    struct Page {
        QString title, message, button, video;
    };
    const Page pages[] = {
        {u"Welcome to Reelsmith"_s, u"The easiest way to convert your video files!"_s, u"Continue"_s,
         u"intro0.mp4"_s},
        {u"Convert using your phone"_s, u"All conversions are done offline, using your device's power"_s,
         u"Continue"_s, u"intro1.mp4"_s},
        {u"Multiple quality options"_s, u"Achieve the perfect balance between image quality and file sizes"_s,
         u"Start"_s, u"intro2.mp4"_s},
    };
    launch();
    auto& screen = await<OnboardingViewControllerV2>();
    for (const Page& page : pages) {
        EXPECT_EQ(screen.titleLabel()->text(), page.title);
        EXPECT_EQ(screen.descriptionLabel()->text(), page.message);
        EXPECT_EQ(screen.continueButton()->title(), page.button);
        EXPECT_EQ(std::exchange(m_played, {}), (QStringList{page.video, u"0"_s, u"play"_s}));
        screen.continueTapped();
    }
    EXPECT_FALSE(screen.continueButton()->isEnabled());
    screen.continueTapped(); // a double tap
    EXPECT_EQ(m_impacts, 3);
    await<MainTabBarController>();
    EXPECT_EQ(m_console.lines().count(u"Instantiated videos vc with default"_s), 1);
    EXPECT_TRUE(m_played.isEmpty());
}

TEST_F(Onboarding, CountsAsShownFromItsFirstAppearanceAndIsLoggedWithConsent) {
    m_delegate.didFinishLaunchingWithOptions();
    EXPECT_TRUE(UserSettings::shared().didShowOnboarding());
    for (const bool consents : {true, false}) {
        UserSettings::shared().setSendUsageData(consents);
        UIViewController& screen = *window().rootViewController();
        screen.beginAppearanceTransition(false);
        screen.endAppearanceTransition();
        screen.beginAppearanceTransition(true);
        screen.endAppearanceTransition();
        EXPECT_EQ(events().count(u"started_tutorial"_s), 2);
    }
}
