// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/AppDelegate.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/services/HTTPClient.h"
#include "platform/uikit/UIAlertController.h"
#include "window/QuickHost.h"
#include "window/ScreenFactory.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QUrl>
#include <memory>

class QDropEvent;

namespace reelsmith {

class Appearance;

/// The application in its window: the Quick window, the screens in it, and the desktop round it. Needs a
/// QGuiApplication. Main thread.
class WindowApplication : public QObject {
    Q_OBJECT

public:
    static inline const QString id = QStringLiteral("io.reelsmith.Reelsmith");

    /// `webClient`: what downloads; `backends`: what the launch configures the services with.
    WindowApplication(LinuxPlatform platform, std::shared_ptr<HTTPClient> webClient,
                      Services::Backends backends = {});
    ~WindowApplication() override;

    /// Takes the launch's steps and shows the window; then takes `files` as from another application.
    void launch(const QList<QUrl>& files);

    /// Comes to the front.
    void activate();

    /// Takes files that another application hands over. What is no file is passed over.
    void open(const QList<QUrl>& files);

    QQuickWindow& quickWindow() { return m_quickWindow; }
    AppDelegate& delegate() { return *m_delegate; }
    QuickHost& host() { return *m_host; }
    Appearance& appearance() { return *m_appearance; }

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void setUpPlatform(std::shared_ptr<HTTPClient> webClient);
    void followDesktop();
    void followWindow();
    void tellSize();
    /// Takes what is dragged over the window, and opens it once it is dropped, if it is files.
    bool takeDrag(QDropEvent& event);
    bool mayClose();
    /// Ends the application, which cancels all that goes on and clears up after it.
    void stopAndClose();

    LinuxPlatform m_platform;
    QQmlEngine m_engine;
    Appearance* m_appearance; // the engine's
    QQuickWindow m_quickWindow;
    ScreenFactory m_factory;
    std::unique_ptr<QuickHost> m_host;
    std::unique_ptr<AppDelegate> m_delegate;
    QPointer<UIAlertController> m_question; // whether to stop what goes on
    bool m_isStopping = false;
};

} // namespace reelsmith
