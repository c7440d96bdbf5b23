// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/WeakDelegate.h"
#include "platform/uikit/HeldInhibitor.h"
#include "platform/uikit/LinkOpener.h"
#include "platform/uikit/Notifications.h"
#include "platform/uikit/UIApplicationDelegate.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace reelsmith {

class UIWindow;

using UIBackgroundTaskIdentifier = int;

/// The running application. Main thread.
class UIApplication : public QObject {
public:
    /// How long background tasks may last.
    struct TaskLimits {
        std::chrono::milliseconds afterWork = std::chrono::seconds(30); ///< with no work going on
        std::chrono::milliseconds atMost = std::chrono::hours(3);       ///< each task, whatever goes on
    };

    static UIApplication& shared();

    /// Null before there is one and once it is gone.
    UIApplicationDelegate* delegate() const { return m_delegate.get(); }
    void setDelegate(const WeakDelegate<UIApplicationDelegate>& delegate) { m_delegate = delegate; }

    /// The window that the user works in; null before there is one and once it is gone.
    UIWindow* keyWindow() const;
    void setKeyWindow(UIWindow* window);

    UIApplication(std::unique_ptr<Inhibitor> sleepInhibitor, TaskLimits limits);
    ~UIApplication() override;

    /// Each takes the place of the one that there was, which does nothing at first.
    void setSleepInhibitor(std::unique_ptr<Inhibitor> inhibitor);
    void setIdleInhibitor(std::unique_ptr<Inhibitor> inhibitor);
    void setLinkOpener(std::shared_ptr<LinkOpener> opener);
    void setNotifications(std::unique_ptr<Notifications> notifications);

    /// While it is disabled and the application is active, the screen neither dims nor locks by itself.
    bool isIdleTimerDisabled() const { return m_isIdleTimerDisabled; }
    void setIdleTimerDisabled(bool isDisabled);

    /// While a video plays the same holds wherever the user is.
    void setVideoPlaying(bool isPlaying);

    /// Whether the user is at the application's window; the window says so.
    void setActive(bool isActive);

    /// Whether anything of the application's window can be seen; the window says so.
    void setInSight(bool isInSight);

    /// Tells the user of something while the window is out of sight, in the place of what was told before. It
    /// is withdrawn when the window comes back.
    void notify(const UserNotification& notification);

    /// Opens an address in another program. `completion`, which may be empty, is called once, on the main
    /// queue, after this has returned.
    void open(const QUrl& url, LinkOpener::Completion completion = {});

    /// Asks for time to finish something even when the user turns away. The device stays awake while any task
    /// is open. A task expires some time after the last ongoing work has ended, or at its own limit: then its
    /// handler is called, and the task is dropped if the handler has not ended it.
    UIBackgroundTaskIdentifier beginBackgroundTask(std::function<void()> expirationHandler);

    /// Nothing happens for a task that has ended or expired.
    void endBackgroundTask(UIBackgroundTaskIdentifier identifier);

private:
    struct Task {
        std::function<void()> expirationHandler;
        std::unique_ptr<QTimer> limit;
    };

    void watchWork();
    void expire(UIBackgroundTaskIdentifier identifier);
    void expireAll();
    void updateIdleInhibitor();

    WeakDelegate<UIApplicationDelegate> m_delegate;
    QPointer<UIWindow> m_keyWindow;
    const TaskLimits m_limits;
    HeldInhibitor m_sleepInhibitor;
    HeldInhibitor m_idleInhibitor;
    std::shared_ptr<LinkOpener> m_linkOpener;
    std::unique_ptr<Notifications> m_notifications;
    std::optional<UserNotification> m_shownNotification;
    bool m_isInSight = true;
    bool m_isIdleTimerDisabled = false;
    bool m_isActive = false;
    bool m_isVideoPlaying = false;
    std::map<UIBackgroundTaskIdentifier, Task> m_tasks;
    UIBackgroundTaskIdentifier m_lastIdentifier = 0;
    QTimer m_afterWork;
};

} // namespace reelsmith
