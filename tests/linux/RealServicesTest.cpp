// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/RunLoop.h"

#include "platform/linux/LinuxPlatform.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTimer>
#include <gtest/gtest.h>

using namespace reelsmith;

/// What runs here for real; see with_desktop.
class RealServices : public testing::Test {
protected:
    RealServices() { QFile::remove(m_handedOver); }

    QString handedOver() const {
        EXPECT_TRUE(runLoopUntil([this] { return QFile::exists(m_handedOver); }));
        QFile file(m_handedOver);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    static void setSetting(const char* key, const char* value) {
        EXPECT_EQ(QProcess::execute(QStringLiteral("gsettings"),
                                    {QStringLiteral("set"), QStringLiteral("org.gnome.desktop.interface"),
                                     QString::fromLatin1(key), QString::fromLatin1(value)}),
                  0);
    }

    static QString inhibited() {
        QDBusInterface manager(
            QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
            QStringLiteral("org.freedesktop.login1.Manager"), QDBusConnection::systemBus());
        return manager.property("BlockInhibited").toString();
    }

    const QString m_handedOver = qEnvironmentVariable("HANDED_OVER");
    LinuxPlatform m_platform{QStringLiteral("io.reelsmith.Reelsmith")};
};

TEST_F(RealServices, LinksAndMailsReachTheUsersPrograms) {
    const QString address = QStringLiteral("https://example.org/a%20b?c=d");
    std::optional<bool> isOpened;
    m_platform.linkOpener->open(QUrl(address), [&isOpened](bool result) { isOpened = result; });
    EXPECT_EQ(handedOver(), address);
    EXPECT_TRUE(runLoopUntil([&isOpened] { return isOpened.has_value(); }));
    EXPECT_TRUE(isOpened.value_or(false));

    QFile::remove(m_handedOver);
    EXPECT_TRUE(m_platform.services.mailDrafts->canSendMail());
    std::optional<MailDrafts::Outcome> outcome;
    m_platform.services.mailDrafts->compose({{QStringLiteral("me@example.org")}, QStringLiteral("A & B"), {}},
                                            [&outcome](MailDrafts::Outcome result) { outcome = result; });
    const QString mail = handedOver();
    EXPECT_TRUE(mail.startsWith(QLatin1String("mailto:")) && mail.contains(QLatin1String("me@example.org")) &&
                mail.contains(QLatin1String("A%20%26%20B")))
        << qPrintable(mail);
    EXPECT_TRUE(runLoopUntil([&outcome] { return outcome.has_value(); }));
    EXPECT_EQ(outcome, MailDrafts::Outcome::Saved);
}

TEST_F(RealServices, SharingOffersEverythingAndMailsCarryTheFile) {
    FileSharing& sharing = *m_platform.services.fileSharing;
    EXPECT_TRUE(runLoopUntil([&sharing] { return sharing.availableActions().size() == 5; }));
    const QUrl film = QUrl::fromLocalFile(QFileInfo(m_handedOver).path() + QStringLiteral("/film.mp4"));
    QFile file(film.toLocalFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    std::optional<FileSharing::Outcome> outcome;
    sharing.perform(FileSharing::Action::SendByMail, film,
                    [&outcome](FileSharing::Outcome result, const QString&) { outcome = result; });
    EXPECT_TRUE(handedOver().contains(film.toLocalFile())) << qPrintable(handedOver());
    EXPECT_TRUE(runLoopUntil([&outcome] { return outcome.has_value(); }));
    EXPECT_EQ(outcome, FileSharing::Outcome::Done);
}

TEST_F(RealServices, TheAppearanceFollowsTheDesktopsSettings) {
    const DesktopAppearance& appearance = *m_platform.appearance;
    int tellings = 0;
    m_platform.appearance->setObserver([&tellings] { ++tellings; });
    ASSERT_TRUE(runLoopUntil([&tellings] { return tellings == 1; }));
    EXPECT_EQ(appearance.settings(), DesktopAppearance::Settings());
    setSetting("color-scheme", "prefer-dark");
    setSetting("text-scaling-factor", "1.5");
    setSetting("enable-animations", "false");
    const DesktopAppearance::Settings wanted{true, 1.5, true};
    EXPECT_TRUE(runLoopUntil([&] { return appearance.settings() == wanted; }));
    EXPECT_EQ(tellings, 4);
}

TEST_F(RealServices, TheFeedbackDaemonPlaysATouch) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusInterface daemon(QStringLiteral("org.sigxcpu.Feedback"), QStringLiteral("/org/sigxcpu/Feedback"),
                          QStringLiteral("org.sigxcpu.Feedback"), bus);
    bool isEnded = false;
    QTimer listener; // any object with a slot
    listener.setInterval(0);
    QObject::connect(&listener, &QTimer::timeout, [&] { isEnded = true; });
    bus.connect(daemon.service(), daemon.path(), daemon.interface(), QStringLiteral("FeedbackEnded"),
                &listener, SLOT(start()));
    m_platform.haptics->impactOccurred();
    EXPECT_TRUE(runLoopUntil([&] { return isEnded; }));
}

TEST_F(RealServices, TheLoginManagerKnowsOfAHeldSleepInhibitor) {
    if (!QDBusConnection::systemBus().isConnected())
        GTEST_SKIP() << "only root may run a login manager";
    EXPECT_EQ(inhibited(), QString());
    m_platform.sleepInhibitor->hold();
    EXPECT_TRUE(runLoopUntil([] { return inhibited() == QLatin1String("sleep"); }));
    m_platform.sleepInhibitor->letGo();
    EXPECT_TRUE(runLoopUntil([] { return inhibited().isEmpty(); }));
}
