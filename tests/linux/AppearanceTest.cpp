// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/PortalAppearance.h"

#include <QDBusMetaType>

using namespace reelsmith;

namespace {

const QString portalGroup = QStringLiteral("org.freedesktop.appearance");
const QString desktopGroup = QStringLiteral("org.gnome.desktop.interface");

class Appearance : public DesktopTest {
protected:
    void change(const QString& group, const QString& key, const QVariant& value) {
        QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
                                                         QStringLiteral("org.freedesktop.portal.Settings"),
                                                         QStringLiteral("SettingChanged"));
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        m_desktop.bus().send(signal);
    }

    bool waitFor(PortalAppearance& appearance, int count) {
        appearance.setObserver([this] { ++m_changes; });
        return runLoopUntil([&] { return m_changes == count; });
    }

    int m_changes = 0;
};

} // namespace

TEST_F(Appearance, IsTheUsualOneWhereNobodyKnows) {
    PortalAppearance appearance(m_client);
    EXPECT_TRUE(waitFor(appearance, 1));
    EXPECT_EQ(appearance.settings(), DesktopAppearance::Settings());
}

TEST_F(Appearance, FollowsThePortal) {
    qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
    m_desktop.appear(portal);
    m_desktop.answer(QStringLiteral("org.freedesktop.portal.Settings.ReadAll"), [](const QDBusMessage& call) {
        EXPECT_EQ(call.arguments().value(0).toStringList(), (QStringList{portalGroup, desktopGroup}));
        return QVariantList{QVariant::fromValue(QMap<QString, QVariantMap>{
            {portalGroup, {{QStringLiteral("color-scheme"), 1U}}},
            {desktopGroup,
             {{QStringLiteral("text-scaling-factor"), 1.25}, {QStringLiteral("font-name"), "Sans"}}}})};
    });
    PortalAppearance appearance(m_client);
    EXPECT_TRUE(waitFor(appearance, 1));
    EXPECT_EQ(appearance.settings(), (DesktopAppearance::Settings{true, 1.25, false}));

    change(desktopGroup, QStringLiteral("font-name"), QStringLiteral("Serif"));
    change(desktopGroup, QStringLiteral("text-scaling-factor"), 1.25);
    change(desktopGroup, QStringLiteral("enable-animations"), false);
    EXPECT_TRUE(waitFor(appearance, 3)) << "the observer is new, and one of three signals brought a change";
    EXPECT_EQ(appearance.settings(), (DesktopAppearance::Settings{true, 1.25, true}));
}
