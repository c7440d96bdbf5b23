// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/SingleInstance.h"

#include <QCoreApplication>
#include <QDBusPendingCall>

using namespace reelsmith;

using Role = SingleInstance::Role;

namespace {

const QString name = "io.example.The-App";

class Instances : public DesktopTest {
protected:
    Instances() {
        QObject::connect(&m_instance, &SingleInstance::activated, [this] { ++m_activations; });
        QObject::connect(&m_instance, &SingleInstance::opened,
                         [this](const auto& files) { m_opened += files; });
    }

    // The role of one more start, in a process of its own.
    std::optional<Role> start(const QStringList& urls = {}) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(),
                      QStringList{"--start", m_bus.address(), name} + urls);
        if (!runLoopUntil([&process] { return process.state() == QProcess::NotRunning; }))
            return std::nullopt;
        return static_cast<Role>(process.exitCode());
    }

    bool call(const QString& method, const QVariantList& arguments) {
        QDBusMessage message = QDBusMessage::createMethodCall(name, "/io/example/The_App",
                                                              "org.freedesktop.Application", method);
        message.setArguments(arguments);
        const QDBusPendingCall reply = m_desktop.bus().asyncCall(message);
        return runLoopUntil([&reply] { return reply.isFinished(); }) && !reply.isError();
    }

    SingleInstance m_instance{m_client, name};
    int m_activations = 0;
    QList<QUrl> m_opened;
};

} // namespace

TEST_F(Instances, ALaterStartHandsOverWhatItWasStartedForAndEnds) {
    EXPECT_EQ(m_instance.claim({}), Role::First);
    EXPECT_EQ(start(), Role::Forwarded);
    EXPECT_EQ(m_activations, 1);
    const QStringList urls{"file:///videos/a%20film%25.mkv", "https://example.org/b.mp4"};
    EXPECT_EQ(start(urls), Role::Forwarded);
    EXPECT_EQ(QUrl::toStringList(m_opened, QUrl::FullyEncoded), urls);
    EXPECT_EQ(m_activations, 1);
}

TEST_F(Instances, OtherProgramsCallItByTheStandardInterface) {
    EXPECT_EQ(m_instance.claim({}), Role::First);
    EXPECT_TRUE(call("Open", {QStringList{"file:///x.mp4"}, QVariantMap{{"activation-token", "token-7"}}}));
    EXPECT_EQ(m_opened, QList<QUrl>{QUrl("file:///x.mp4")});
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token-7");
    qunsetenv("XDG_ACTIVATION_TOKEN");
    EXPECT_TRUE(call("ActivateAction", {"any", QVariantList(), QVariantMap()}));
    EXPECT_FALSE(call("Close", {}));
}

TEST_F(Instances, WhereNobodyAnswersAStartRunsByItself) {
    m_desktop.appear(name); // has the name, and knows no such call
    EXPECT_EQ(start(), Role::Separate);
    EXPECT_EQ(SingleInstance(QDBusConnection("none"), name).claim({}), Role::Separate);
}
