// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/DesktopInhibitor.h"

#include <QDBusObjectPath>

using namespace reelsmith;

namespace {

class Inhibitors : public DesktopTest {
protected:
    bool isCalled(const QString& method, int count) {
        return runLoopUntil([&] { return m_desktop.calls(method).size() == count; });
    }

    DesktopInhibitor m_idle{{portalIdleLease(m_client), screenSaverLease(m_client)}};
};

} // namespace

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
    int calls = 0;
    for (const auto& each : cases) {
        m_desktop.appear(each.service);
        m_desktop.answer(each.method, [&each](const QDBusMessage&) { return QVariantList{each.grant}; });
        for (const int round : {1, 2}) {
            m_idle.hold();
            ASSERT_TRUE(isCalled("Inhibit", ++calls)) << qPrintable(each.service);
            m_idle.letGo();
            ASSERT_TRUE(isCalled(each.release, round)) << qPrintable(each.service);
            const QDBusMessage release = m_desktop.calls(each.release).constLast();
            EXPECT_EQ(release.arguments().value(0, release.path()), each.released);
        }
    }
    EXPECT_EQ(m_desktop.argument("Inhibit", 1), 8U);
}
