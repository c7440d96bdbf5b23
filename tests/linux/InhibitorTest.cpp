// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/bus/DesktopInhibitor.h"

#include <QDBusObjectPath>

using namespace reelsmith;

using Inhibitors = DesktopTest;

TEST_F(Inhibitors, TheFirstServiceThatIsThereKeepsTheScreenOn) {
    const struct {
        QString service, method;
        QVariant grant;
        QString release;
        QVariant released; // by its path or its argument
    } cases[] = {
        {"org.freedesktop.ScreenSaver", "org.freedesktop.ScreenSaver.Inhibit", 77U, "UnInhibit", 77U},
        {portal, "org.freedesktop.portal.Inhibit.Inhibit", QVariant::fromValue(QDBusObjectPath("/handle")),
         "Close", "/handle"},
    };
    DesktopInhibitor idle({portalIdleLease(m_client), screenSaverLease(m_client)});
    int calls = 0;
    for (const auto& each : cases) {
        m_desktop.appear(each.service);
        m_desktop.answer(each.method, [&each](const QDBusMessage&) { return QVariantList{each.grant}; });
        for (const int round : {1, 2}) {
            idle.hold();
            ASSERT_TRUE(isCalled("Inhibit", ++calls)) << qPrintable(each.service);
            idle.letGo();
            ASSERT_TRUE(isCalled(each.release, round)) << qPrintable(each.service);
            const QDBusMessage release = m_desktop.calls(each.release).constLast();
            EXPECT_EQ(release.arguments().value(0, release.path()), each.released);
        }
    }
    EXPECT_EQ(m_desktop.argument("Inhibit", 1), 8U);
}
