// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/bus/DesktopInhibitor.h"

#include <QDBusInterface>

using namespace reelsmith;

/// What runs here for real; see with_desktop.
class RealServices : public testing::Test {
protected:
    RealServices() { QFile::remove(m_handedOver); }

    QString handedOver() const {
        EXPECT_TRUE(runLoopUntil([this] { return QFile::exists(m_handedOver); }));
        return QString::fromUtf8(readFile(m_handedOver));
    }
    static void setSetting(const QString& key, const QString& value,
                           const QString& group = "org.gnome.desktop.interface") {
        EXPECT_EQ(QProcess::execute("gsettings", {"set", group, key, value}), 0);
    }
    static QString inhibited() {
        const QDBusInterface manager("org.freedesktop.login1", "/org/freedesktop/login1",
                                     "org.freedesktop.login1.Manager", QDBusConnection::systemBus());
        return manager.property("BlockInhibited").toString();
    }

    const QString m_handedOver = qEnvironmentVariable("HANDED_OVER");
    LinuxPlatform m_platform{"io.reelsmith.Reelsmith"};
};

// The first, so that nothing has come over the bus before.
TEST_F(RealServices, TheAppearanceFollowsTheDesktopsSettings) {
    const DesktopAppearance& appearance = *m_platform.appearance;
    int tellings = 0;
    m_platform.appearance->setObserver([&tellings] { ++tellings; });
    ASSERT_TRUE(runLoopUntil([&tellings] { return tellings == 1; }));
    EXPECT_EQ(appearance.settings(), DesktopAppearance::Settings());
    setSetting("color-scheme", "prefer-dark");
    setSetting("text-scaling-factor", "1.5");
    setSetting("enable-animations", "false");
    setSetting("high-contrast", "true", "org.gnome.desktop.a11y.interface");
    const DesktopAppearance::Settings wanted{
        .isDark = true, .hasHighContrast = true, .textScale = 1.5, .isStill = true};
    EXPECT_TRUE(runLoopUntil([&] { return appearance.settings() == wanted; }));
    setSetting("font-name", "Serif");
    setSetting("enable-animations", "true");
    EXPECT_TRUE(runLoopUntil([&] { return !appearance.settings().isStill; }));
    EXPECT_EQ(tellings, 6);
}

TEST_F(RealServices, LinksAndMailsReachTheUsersPrograms) {
    std::optional<bool> isOpened;
    m_platform.linkOpener->open(QUrl("https://example.org/a%20b?c=d"),
                                [&](bool result) { isOpened = result; });
    EXPECT_EQ(handedOver(), "https://example.org/a%20b?c=d");
    EXPECT_TRUE(runLoopUntil([&isOpened] { return isOpened == true; }));

    QFile::remove(m_handedOver);
    std::optional<MailDrafts::Outcome> outcome;
    EXPECT_TRUE(m_platform.services.mailDrafts->canSendMail());
    m_platform.services.mailDrafts->compose({{"me@example.org"}, "A & B", {}},
                                            [&](MailDrafts::Outcome result) { outcome = result; });
    EXPECT_TRUE(handedOver().startsWith("mailto:") && handedOver().contains("me@example.org") &&
                handedOver().contains("A%20%26%20B"))
        << qPrintable(handedOver());
    EXPECT_TRUE(runLoopUntil([&outcome] { return outcome == MailDrafts::Outcome::Saved; }));
}

TEST_F(RealServices, TheFeedbackDaemonPlaysATouch) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    auto* listener = new QObject;
    bool isEnded = false;
    QObject::connect(listener, &QObject::destroyed, [&isEnded] { isEnded = true; });
    bus.connect("org.sigxcpu.Feedback", "/org/sigxcpu/Feedback", "org.sigxcpu.Feedback", "FeedbackEnded",
                listener, SLOT(deleteLater()));
    m_platform.haptics->impactOccurred();
    EXPECT_TRUE(runLoopUntil([&isEnded] { return isEnded; }));
}

TEST_F(RealServices, TheScreenStaysOnByTheLoginManagerWhereNothingElseKeepsIt) {
    if (!QDBusConnection::systemBus().isConnected())
        GTEST_SKIP() << "no login manager runs here: that takes root";
    DesktopInhibitor idle({screenSaverLease(QDBusConnection::sessionBus()),
                           loginManagerLease(QDBusConnection::systemBus(), "idle")});
    idle.hold();
    EXPECT_TRUE(runLoopUntil([] { return inhibited() == "idle"; }));
    idle.letGo();
    EXPECT_TRUE(runLoopUntil([] { return inhibited().isEmpty(); }));
}
