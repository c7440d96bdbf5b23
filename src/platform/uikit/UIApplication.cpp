// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UIApplication.h"

#include "platform/foundation/OngoingWork.h"

namespace reelsmith {

UIApplication& UIApplication::shared() {
    static UIApplication application(std::make_unique<SleepInhibitor>(), TaskLimits());
    return application;
}

UIApplication::UIApplication(std::unique_ptr<SleepInhibitor> inhibitor, TaskLimits limits)
    : m_limits(limits), m_inhibitor(std::move(inhibitor)) {
    m_afterWork.setSingleShot(true);
    m_afterWork.setInterval(m_limits.afterWork);
    connect(&m_afterWork, &QTimer::timeout, this, &UIApplication::expireAll);
    OngoingWork::setObserver([this] { watchWork(); });
}

UIApplication::~UIApplication() {
    OngoingWork::setObserver({});
    if (!m_tasks.empty())
        m_inhibitor->letGo();
}

void UIApplication::setSleepInhibitor(std::unique_ptr<SleepInhibitor> inhibitor) {
    if (!m_tasks.empty()) {
        m_inhibitor->letGo();
        inhibitor->hold();
    }
    m_inhibitor = std::move(inhibitor);
}

UIBackgroundTaskIdentifier UIApplication::beginBackgroundTask(std::function<void()> expirationHandler) {
    const UIBackgroundTaskIdentifier identifier = ++m_lastIdentifier;
    auto limit = std::make_unique<QTimer>();
    limit->setSingleShot(true);
    connect(limit.get(), &QTimer::timeout, this, [this, identifier] { expire(identifier); });
    limit->start(m_limits.atMost);
    if (m_tasks.empty())
        m_inhibitor->hold();
    m_tasks.emplace(identifier, Task{std::move(expirationHandler), std::move(limit)});
    watchWork();
    return identifier;
}

void UIApplication::endBackgroundTask(UIBackgroundTaskIdentifier identifier) {
    const auto task = m_tasks.find(identifier);
    if (task == m_tasks.end())
        return;
    // This may be the timer's own call.
    task->second.limit.release()->deleteLater();
    m_tasks.erase(task);
    if (m_tasks.empty()) {
        m_afterWork.stop();
        m_inhibitor->letGo();
    }
}

void UIApplication::watchWork() {
    if (OngoingWork::isAny())
        m_afterWork.stop();
    else if (!m_tasks.empty())
        m_afterWork.start();
}

void UIApplication::expire(UIBackgroundTaskIdentifier identifier) {
    const auto task = m_tasks.find(identifier);
    if (task == m_tasks.end())
        return;
    if (const std::function<void()> handler = std::move(task->second.expirationHandler))
        handler();
    endBackgroundTask(identifier);
}

void UIApplication::expireAll() {
    while (!m_tasks.empty())
        expire(m_tasks.begin()->first);
}

} // namespace reelsmith
