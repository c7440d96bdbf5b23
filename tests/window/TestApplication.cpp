// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestApplication.h"

#include "demo/DemoServices.h"
#include "fakes/ScriptedHTTPClient.h"
#include "platform/foundation/OngoingWork.h"
#include "settings/UserSettings.h"

#include <QDir>
#include <QTest>
#include <gtest/gtest.h>
#include <stdexcept>

namespace reelsmith {

namespace {

LinuxPlatform platform() {
    LinuxPlatform platform;
    platform.services.fileSharing = std::make_unique<DemoFileSharing>();
    return platform;
}

void send(QQuickWindow& window, QEvent::Type type, QPointF place, Qt::MouseButtons buttons) {
    QMouseEvent event(type, place, window.mapToGlobal(place), Qt::LeftButton, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
}

} // namespace

TestApplication::TestApplication() {
    for (const char* folder : {"Documents", "Videos"})
        QDir(QDir::homePath() + '/' + folder).removeRecursively();
    homeFile("Documents/Reelsmith/outputs/Summer by the sea.mp4");
    m_application = std::make_unique<WindowApplication>(platform(), std::make_shared<ScriptedHTTPClient>());
    appearance().setDurationsScale(0);
    UserSettings::shared().setDidShowOnboarding(true);
    m_application->launch({});
    window().requestActivate();
    if (!QTest::qWaitForWindowActive(&window()))
        throw std::runtime_error("The window does not get the focus");
    settle();
}

TestApplication::~TestApplication() {
    m_application.reset();
    homeFile(endMark);
    EXPECT_TRUE(runLoopUntil([] { return !OngoingWork::isAny(); }));
}

void TestApplication::resize(QSize size) {
    window().resize(size);
    QCoreApplication::processEvents();
    // What has changed its size is laid out before the next frame.
    window().grabWindow();
}

void TestApplication::settle() {
    EXPECT_TRUE(runLoopUntil([this] { return screens().presentations().isIdle(); }));
    QCoreApplication::processEvents();
}

QQuickItem& TestApplication::control(const QString& name) {
    for (QQuickItem* item : visibleItems(frontItem())) {
        if (item->objectName() == name || item->property("label") == name)
            return *item;
    }
    throw std::runtime_error("Nothing in front is called " + name.toStdString());
}

QPointF TestApplication::centre(const QString& name) {
    // What is new in the window has its place only when that is drawn.
    window().grabWindow();
    return sceneRectangle(control(name)).center();
}

void TestApplication::tap(const QString& name) {
    tapAt(centre(name));
}

void TestApplication::tapAt(QPointF place) {
    QTest::mouseClick(&window(), Qt::LeftButton, {}, place.toPoint());
}

void TestApplication::tapTwice(const QString& name) {
    const QPointF place = centre(name);
    for (int i = 0; i < 2; ++i) {
        send(window(), QEvent::MouseButtonPress, place, Qt::LeftButton);
        send(window(), QEvent::MouseButtonRelease, place, Qt::NoButton);
    }
}

void TestApplication::press(Qt::Key key) {
    QTest::keyClick(&window(), key);
}

void TestApplication::type(const QString& text) {
    for (const QChar letter : text)
        QTest::keyClick(&window(), letter.toLatin1());
}

std::vector<QQuickItem*> visibleItems(QQuickItem& item) {
    if (!item.isVisible() || item.opacity() == 0)
        return {};
    std::vector<QQuickItem*> all{&item};
    for (QQuickItem* child : item.childItems()) {
        for (QQuickItem* below : visibleItems(*child))
            all.push_back(below);
    }
    return all;
}

std::vector<QQuickItem*> controls(QQuickItem& item) {
    std::vector<QQuickItem*> all = visibleItems(item);
    std::erase_if(all, [](QQuickItem* one) {
        return !one->isEnabled() || !(one->activeFocusOnTab() || one->inherits("QQuickAbstractButton") ||
                                      one->inherits("QQuickTextInput"));
    });
    return all;
}

QRectF sceneRectangle(const QQuickItem& item) {
    return item.mapRectToScene({QPointF(), item.size()});
}

QByteArray awaitingEnd() {
    return "export await " + (QDir::homePath() + '/' + endMark).toUtf8() + '\n';
}

QString homeFile(const QString& name, const QByteArray& contents) {
    QFile file(QDir::homePath() + '/' + name);
    EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly));
    file.write(contents);
    return file.fileName();
}

} // namespace reelsmith
