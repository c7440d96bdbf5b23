// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/DesktopInhibitor.h"

#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QSocketNotifier>
#include <unistd.h>

using namespace reelsmith;

namespace {

const QString portalInhibit = QStringLiteral("org.freedesktop.portal.Inhibit.Inhibit");
const QString screenSaverInhibit = QStringLiteral("org.freedesktop.ScreenSaver.Inhibit");
const QString loginInhibit = QStringLiteral("org.freedesktop.login1.Manager.Inhibit");

class Inhibitors : public DesktopTest {
protected:
    Inhibitors() {
        m_desktop.answer(portalInhibit, [](const QDBusMessage&) {
            return QVariantList{QVariant::fromValue(QDBusObjectPath(QStringLiteral("/handle")))};
        });
        m_desktop.answer(screenSaverInhibit, [](const QDBusMessage&) { return QVariantList{77U}; });
        m_desktop.answer(loginInhibit, [this](const QDBusMessage&) {
            int ends[2] = {};
            EXPECT_EQ(::pipe(ends), 0);
            m_readEnd = ends[0];
            QDBusUnixFileDescriptor lock;
            lock.giveFileDescriptor(ends[1]);
            return QVariantList{QVariant::fromValue(lock)};
        });
    }
    ~Inhibitors() override { ::close(m_readEnd); }

    // The descriptor was handed out, and nobody has it any more.
    bool isLockReleased() {
        bool isEnded = false;
        QSocketNotifier notifier(m_readEnd, QSocketNotifier::Read);
        QObject::connect(&notifier, &QSocketNotifier::activated, [&] {
            char byte = 0;
            isEnded = ::read(m_readEnd, &byte, 1) == 0;
        });
        return runLoopUntil([&] { return isEnded; });
    }

    bool waitFor(const char* method, int count = 1) {
        return runLoopUntil([&] { return m_desktop.calls(QString::fromLatin1(method)).size() == count; });
    }

    DesktopInhibitor m_idle{{portalIdleLease(m_client), screenSaverLease(m_client),
                             loginManagerLease(m_client, QStringLiteral("idle"))}};
    int m_readEnd = -1;
};

} // namespace

TEST_F(Inhibitors, TheScreenIsKeptOnByThePortalFirst) {
    m_desktop.appear(portal);
    m_desktop.appear(QStringLiteral("org.freedesktop.ScreenSaver"));
    m_idle.hold();
    ASSERT_TRUE(waitFor("Inhibit"));
    EXPECT_EQ(m_desktop.calls(QStringLiteral("Inhibit"))[0].signature(), QStringLiteral("sua{sv}"));
    EXPECT_EQ(m_desktop.calls(QStringLiteral("Inhibit"))[0].arguments().value(1), 8U);
    m_idle.letGo();
    ASSERT_TRUE(waitFor("Close")) << "also when it was let go before the answer came";
    EXPECT_EQ(m_desktop.calls(QStringLiteral("Close"))[0].path(), QStringLiteral("/handle"));
}

TEST_F(Inhibitors, WithoutAPortalByTheScreenSaver) {
    m_desktop.appear(QStringLiteral("org.freedesktop.ScreenSaver"));
    for (int round = 1; round <= 2; ++round) {
        m_idle.hold();
        ASSERT_TRUE(waitFor("Inhibit", round));
        m_idle.letGo();
        ASSERT_TRUE(waitFor("UnInhibit", round));
        EXPECT_EQ(m_desktop.calls(QStringLiteral("UnInhibit")).constLast().arguments(), QVariantList{77U});
    }
}

TEST_F(Inhibitors, WithoutEitherByTheLoginManager) {
    m_desktop.appear(QStringLiteral("org.freedesktop.login1"));
    m_idle.hold();
    ASSERT_TRUE(waitFor("Inhibit"));
    const QVariantList arguments = m_desktop.calls(QStringLiteral("Inhibit"))[0].arguments();
    EXPECT_EQ(arguments.value(0), QStringLiteral("idle"));
    EXPECT_EQ(arguments.value(3), QStringLiteral("block"));
    m_idle.letGo();
    EXPECT_TRUE(isLockReleased());
}
