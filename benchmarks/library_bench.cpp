// SPDX-License-Identifier: GPL-3.0-or-later
// library_bench list|grid: opens the library of this home folder in the real window and scrolls through it, a
// screenful a frame. Prints how long the library's first frame took and the longest wait for the main thread,
// in milliseconds, and the memory that is resident at the end, in megabytes.
#include "fakes/ScriptedHTTPClient.h"

#include "app/MainTabBarController.h"
#include "library/VideosViewController.h"
#include "platform/uikit/UINavigationController.h"
#include "settings/UserSettings.h"
#include "window/WindowApplication.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QQuickItem>
#include <QThread>
#include <QTimer>
#include <cstdio>

using namespace reelsmith;

namespace {

constexpr std::chrono::milliseconds rest{1500};

QQuickItem* find(QQuickItem& item, const QString& name) {
    if (item.objectName() == name)
        return &item;
    for (QQuickItem* child : item.childItems()) {
        if (QQuickItem* found = find(*child, name))
            return found;
    }
    return nullptr;
}

/// The longest time that anything posted to the main thread has waited for it.
class LongestWait {
public:
    LongestWait() {
        m_timer.moveToThread(&m_thread);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            QElapsedTimer wait;
            wait.start();
            QMetaObject::invokeMethod(
                &m_mainThread, [this, wait] { m_longest = std::max(m_longest, wait.nsecsElapsed()); },
                Qt::QueuedConnection);
        });
        QObject::connect(&m_thread, &QThread::started, &m_timer, [this] { m_timer.start(1); });
        QObject::connect(&m_thread, &QThread::finished, &m_timer, &QTimer::stop);
        m_thread.start();
    }
    ~LongestWait() {
        m_thread.quit();
        m_thread.wait();
    }

    double milliseconds() const { return static_cast<double>(m_longest) / 1e6; }
    void forget() { m_longest = 0; }

private:
    QTimer m_timer;
    QThread m_thread;
    QObject m_mainThread;
    qint64 m_longest = 0;
};

double residentMegabytes() {
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QString status = QString::fromLatin1(file.readAll());
    return status.section(QStringLiteral("VmRSS:"), 1).trimmed().section(QLatin1Char(' '), 0, 0).toDouble() /
           1024;
}

class Benchmark {
public:
    explicit Benchmark(bool isGrid) : m_application(LinuxPlatform(), std::make_shared<ScriptedHTTPClient>()) {
        UserSettings::shared().setDidShowOnboarding(true);
        m_application.launch({});
        if (isGrid)
            stack().setRootViewController(std::make_unique<VideosViewController>());
        QTimer::singleShot(rest, &m_guard, [this] { open(); });
    }

private:
    MainTabBarController& tabs() {
        return *qobject_cast<MainTabBarController*>(m_application.delegate().window()->rootViewController());
    }
    UINavigationController& stack() {
        return *qobject_cast<UINavigationController*>(tabs().viewControllers().at(1));
    }

    void open() {
        m_waits.forget();
        m_sinceTap.start();
        QObject::connect(&m_application.quickWindow(), &QQuickWindow::frameSwapped, &m_guard,
                         [this] { frameShown(); });
        tabs().setSelectedIndex(1);
    }

    void frameShown() {
        if (m_firstFrame < 0) {
            m_firstFrame = static_cast<double>(m_sinceTap.nsecsElapsed()) / 1e6;
            m_view = find(*m_application.quickWindow().contentItem(), QStringLiteral("videos"));
            if (m_view == nullptr)
                qFatal("The library does not show");
        }
        const double top = m_view->property("contentY").toDouble();
        const double end = m_view->property("contentHeight").toDouble() - m_view->height();
        if (top >= end) {
            if (!std::exchange(m_isAtEnd, true))
                QTimer::singleShot(rest, &m_guard, [this] { report(); });
            return;
        }
        m_view->setProperty("contentY", std::min(end, top + m_view->height()));
    }

    void report() {
        std::printf("%.1f %.1f %.1f\n", m_firstFrame, m_waits.milliseconds(), residentMegabytes());
        QCoreApplication::quit();
    }

    WindowApplication m_application;
    LongestWait m_waits;
    QElapsedTimer m_sinceTap;
    QQuickItem* m_view = nullptr;
    double m_firstFrame = -1;
    bool m_isAtEnd = false;
    QObject m_guard;
};

} // namespace

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    Benchmark benchmark(QCoreApplication::arguments().value(1) == QLatin1String("grid"));
    return QGuiApplication::exec();
}
