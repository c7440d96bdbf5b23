// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UIApplication.h"

#include "platform/foundation/OngoingWork.h"
#include "platform/uikit/UIWindow.h"

namespace reelsmith {

UIApplication& UIApplication::shared() {
    static UIApplication application(std::make_unique<Inhibitor>(), TaskLimits());
    return application;
}

UIApplication::UIApplication(std::unique_ptr<Inhibitor> sleepInhibitor, TaskLimits limits)
    : m_limits(limits),
      m_sleepInhibitor(std::move(sleepInhibitor)),
      m_idleInhibitor(std::make_unique<Inhibitor>()),
      m_linkOpener(std::make_shared<LinkOpener>()),
      m_notifications(std::make_unique<Notifications>()) {
    m_afterWork.setSingleShot(true);
    m_afterWork.setInterval(m_limits.afterWork);
    connect(&m_afterWork, &QTimer::timeout, this, &UIApplication::expireAll);
    OngoingWork::setObserver([this] { watchWork(); });
}

UIApplication::~UIApplication() {
    OngoingWork::setObserver({});
}

void UIApplication::setSleepInhibitor(std::unique_ptr<Inhibitor> inhibitor) {
    m_sleepInhibitor.replace(std::move(inhibitor));
}

void UIApplication::setIdleInhibitor(std::unique_ptr<Inhibitor> inhibitor) {
    m_idleInhibitor.replace(std::move(inhibitor));
}

void UIApplication::setLinkOpener(std::shared_ptr<LinkOpener> opener) {
    m_linkOpener = std::move(opener);
}

void UIApplication::setNotifications(std::unique_ptr<Notifications> notifications) {
    m_notifications = std::move(notifications);
}

void UIApplication::setIdleTimerDisabled(bool isDisabled) {
    m_isIdleTimerDisabled = isDisabled;
    updateIdleInhibitor();
}

void UIApplication::setVideoPlaying(bool isPlaying) {
    m_isVideoPlaying = isPlaying;
    updateIdleInhibitor();
}

void UIApplication::updateIdleInhibitor() {
    m_idleInhibitor.setHeld(m_isVideoPlaying || (m_isIdleTimerDisabled && m_isActive));
}

void UIApplication::setActive(bool isActive) {
    m_isActive = isActive;
    updateIdleInhibitor();
}

void UIApplication::setInSight(bool isInSight) {
    m_isInSight = isInSight;
    if (m_isInSight && std::exchange(m_shownNotification, std::nullopt))
        m_notifications->withdraw();
}

void UIApplication::notify(const UserNotification& notification) {
    if (m_isInSight || m_shownNotification == notification)
        return;
    m_shownNotification = notification;
    m_notifications->show(notification);
}

void UIApplication::open(const QUrl& url, LinkOpener::Completion completion) {
    m_linkOpener->open(
        url, completion ? std::move(completion) : [](bool) {});
}

UIWindow* UIApplication::keyWindow() const {
    return m_keyWindow;
}

void UIApplication::setKeyWindow(UIWindow* window) {
    m_keyWindow = window;
}

UIBackgroundTaskIdentifier UIApplication::beginBackgroundTask(std::function<void()> expirationHandler) {
    const UIBackgroundTaskIdentifier identifier = ++m_lastIdentifier;
    auto limit = std::make_unique<QTimer>();
    limit->setSingleShot(true);
    connect(limit.get(), &QTimer::timeout, this, [this, identifier] { expire(identifier); });
    limit->start(m_limits.atMost);
    m_tasks.emplace(identifier, Task{std::move(expirationHandler), std::move(limit)});
    m_sleepInhibitor.setHeld(true);
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
        m_sleepInhibitor.setHeld(false);
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
    if (!m_tasks.contains(identifier))
        return;
    qWarning("Background task %d has not been ended by its handler and is dropped.", identifier);
    endBackgroundTask(identifier);
}

void UIApplication::expireAll() {
    while (!m_tasks.empty())
        expire(m_tasks.begin()->first);
}

} // namespace reelsmith
