// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/SleepInhibitor.h"

#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>
#include <map>
#include <memory>

namespace reelsmith {

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

    UIApplication(std::unique_ptr<SleepInhibitor> inhibitor, TaskLimits limits);
    ~UIApplication() override;

    /// Takes the place of the inhibitor that there was.
    void setSleepInhibitor(std::unique_ptr<SleepInhibitor> inhibitor);

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

    const TaskLimits m_limits;
    std::unique_ptr<SleepInhibitor> m_inhibitor;
    std::map<UIBackgroundTaskIdentifier, Task> m_tasks;
    UIBackgroundTaskIdentifier m_lastIdentifier = 0;
    QTimer m_afterWork;
};

} // namespace reelsmith
