// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/Scenes.h"
#include "fakes/ConsoleCapture.h"

#include "window/Appearance.h"
#include "window/WindowApplication.h"

#include <QQuickItem>
#include <vector>

namespace reelsmith {

/// The application in its window as a user finds it at the first start, with no desktop around it but one
/// that shares files, with the scripted worker, and where nothing takes time.
class TestApplication {
public:
    TestApplication();
    /// Lets all that waits for the end go on to its own.
    ~TestApplication();

    WindowApplication& application() { return *m_application; }
    QQuickWindow& window() { return m_application->quickWindow(); }
    Appearance& appearance() { return m_application->appearance(); }
    UIWindow& screens() { return *m_application->delegate().window(); }
    UIViewController& root() { return *screens().rootViewController(); }
    UIViewController& frontScreen() { return *screens().frontmost(); }
    QQuickItem& frontItem() { return *m_application->host().item(frontScreen()); }
    QQuickItem& rootItem() { return *m_application->host().item(root()); }

    /// Hands a file over as another application would.
    void open(const QString& path) { m_application->open({QUrl::fromLocalFile(path)}); }
    void resize(QSize size);

    /// Runs until no change of screens is going on or asked for.
    void settle();
    /// Settles, and until such a screen is in front; throws, which ends the test, if none ever is.
    template<typename Screen>
    Screen& await() {
        return awaitInFront<Screen>(screens());
    }

    /// The control in front of that object name or label; a failure if it is not there to see.
    QQuickItem& control(const QString& name);
    void tap(const QString& name);
    void tapAt(QPointF place);
    /// Two taps so soon after each other that nothing can happen in between.
    void tapTwice(const QString& name);
    void press(Qt::Key key);
    void type(const QString& text);

private:
    QPointF centre(const QString& name);

    ConsoleCapture m_console;
    std::unique_ptr<WindowApplication> m_application;
};

/// All that can be seen of an item and what stands in it, itself included.
std::vector<QQuickItem*> visibleItems(QQuickItem& item);

/// Those among them that take presses or keys.
std::vector<QQuickItem*> controls(QQuickItem& item);

QRectF sceneRectangle(const QQuickItem& item);

/// What has a conversion of the scripted worker wait for the end of the application, or for this file.
const QString endMark = "Videos/the end";
QByteArray awaitingEnd();

/// A name longer than any window is wide.
const QString longName = "Summer holidays with grandma and all of the cousins at the lake in the mountains";

/// A file in the home folder, made with all the folders above it.
QString homeFile(const QString& name, const QByteArray& contents = {});

} // namespace reelsmith
