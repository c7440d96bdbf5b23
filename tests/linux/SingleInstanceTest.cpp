// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/SingleInstance.h"

#include <QCoreApplication>
#include <QDBusPendingCall>
#include <QProcess>

using namespace reelsmith;

namespace {

const QString name = QStringLiteral("io.example.The-App");

class Instances : public DesktopTest {
protected:
    // The role of one more start, in a process of its own.
    std::optional<SingleInstance::Role> start(const QStringList& urls = {}) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(),
                      QStringList{QStringLiteral("--start"), m_bus.address(), name} + urls);
        if (!runLoopUntil([&process] { return process.state() == QProcess::NotRunning; }))
            return std::nullopt;
        return static_cast<SingleInstance::Role>(process.exitCode());
    }

    bool call(const QString& method, const QVariantList& arguments) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(name, QStringLiteral("/io/example/The_App"),
                                           QStringLiteral("org.freedesktop.Application"), method);
        message.setArguments(arguments);
        const QDBusPendingCall reply = m_desktop.bus().asyncCall(message);
        return runLoopUntil([&reply] { return reply.isFinished(); }) && !reply.isError();
    }
};

} // namespace

TEST_F(Instances, ALaterStartHandsOverWhatItWasStartedForAndEnds) {
    SingleInstance instance(m_client, name);
    int activations = 0;
    QList<QUrl> opened;
    QObject::connect(&instance, &SingleInstance::activated, [&] { ++activations; });
    QObject::connect(&instance, &SingleInstance::opened, [&](const QList<QUrl>& files) { opened += files; });
    EXPECT_EQ(instance.claim({}), SingleInstance::Role::First);

    EXPECT_EQ(start(), SingleInstance::Role::Forwarded);
    EXPECT_EQ(activations, 1);
    const QUrl film(QStringLiteral("file:///videos/a%20film%25.mkv"));
    EXPECT_EQ(start({film.toString(QUrl::FullyEncoded), QStringLiteral("https://example.org/b.mp4")}),
              SingleInstance::Role::Forwarded);
    EXPECT_EQ(opened, (QList<QUrl>{film, QUrl(QStringLiteral("https://example.org/b.mp4"))}));
    EXPECT_EQ(activations, 1);
}

TEST_F(Instances, OtherProgramsCallItByTheStandardInterface) {
    SingleInstance instance(m_client, name);
    QList<QUrl> opened;
    QObject::connect(&instance, &SingleInstance::opened, [&](const QList<QUrl>& files) { opened += files; });
    EXPECT_EQ(instance.claim({}), SingleInstance::Role::First);
    const QVariantMap platformData{{QStringLiteral("activation-token"), QStringLiteral("token-7")}};
    EXPECT_TRUE(call(QStringLiteral("Open"), {QStringList{QStringLiteral("file:///x.mp4")}, platformData}));
    EXPECT_EQ(opened, QList<QUrl>{QUrl(QStringLiteral("file:///x.mp4"))});
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token-7");
    qunsetenv("XDG_ACTIVATION_TOKEN");
    EXPECT_TRUE(
        call(QStringLiteral("ActivateAction"), {QStringLiteral("any"), QVariantList(), QVariantMap()}));
    EXPECT_FALSE(call(QStringLiteral("Close"), {}));
}

TEST_F(Instances, WhereNobodyAnswersAStartRunsByItself) {
    m_desktop.appear(name); // has the name, and knows no such call
    EXPECT_EQ(start(), SingleInstance::Role::Separate);
    SingleInstance withoutBus(QDBusConnection(QStringLiteral("none")), name);
    EXPECT_EQ(withoutBus.claim({}), SingleInstance::Role::Separate);
}
