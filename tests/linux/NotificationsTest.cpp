// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/PortalNotifications.h"
#include "platform/uikit/UIApplication.h"

using namespace reelsmith;

using Notices = DesktopTest;

TEST_F(Notices, AUserWhoIsElsewhereIsToldOnceOfEachThingAndCanTapIt) {
    m_desktop.appear(portal);
    auto notifications = std::make_unique<PortalNotifications>(m_client);
    int taps = 0;
    notifications->setOnTapped([&taps] { ++taps; });
    UIApplication application(std::make_unique<Inhibitor>(), {});
    application.setNotifications(std::move(notifications));

    application.notify({"film", "Converting: 41 %", UserNotification::Weight::Status});
    application.setInSight(false);
    application.notify({"film", "Converting: 42 %", UserNotification::Weight::Status});
    application.notify({"film", "Converting: 42 %", UserNotification::Weight::Status});
    ASSERT_TRUE(isCalled("AddNotification"));
    EXPECT_EQ(m_desktop.option("AddNotification", "body"), "Converting: 42 %");
    EXPECT_EQ(m_desktop.option("AddNotification", "priority"), "low");
    application.notify({"film is ready", "Tap to share it."});
    ASSERT_TRUE(isCalled("AddNotification", 2));
    EXPECT_EQ(m_desktop.option("AddNotification", "title"), "film is ready");

    const QVariant id = m_desktop.argument("AddNotification", 0);
    for (const QVariant& whose : {QVariant("another"), id}) {
        QDBusMessage tap = QDBusMessage::createSignal("/org/freedesktop/portal/desktop",
                                                      "org.freedesktop.portal.Notification", "ActionInvoked");
        tap << whose << m_desktop.option("AddNotification", "default-action") << QVariantList();
        ASSERT_TRUE(m_desktop.bus().send(tap));
    }
    ASSERT_TRUE(runLoopUntil([&] { return taps > 0; }));
    EXPECT_EQ(taps, 1);

    application.setInSight(true);
    ASSERT_TRUE(isCalled("RemoveNotification"));
    EXPECT_EQ(m_desktop.argument("RemoveNotification", 0), id);
}
