// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/TransitionDriver.h"

#include <QObject>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

class QQuickItem;
class QQuickWindow;

namespace reelsmith {

class ScreenFactory;
class UINavigationController;
class UITabBarController;
class UIViewController;
class UIWindow;

/// Shows the screens of a UIWindow in a Qt Quick window: makes the item of each, and moves one number on it
/// when it comes or goes: "presence" 0…1 on those presented, "slide" -1…1, in widths, on those in a stack.
/// Main thread.
class QuickHost : public QObject, public TransitionDriver {
    Q_OBJECT

public:
    /// All must outlive the host.
    QuickHost(QQuickWindow& quickWindow, UIWindow& window, ScreenFactory& factory);
    ~QuickHost() override;

    void run(const Transition& transition, std::function<void()> done) override;
    void willRelease(UIViewController& screen) override;

    /// The item that shows `screen`; null while it has none.
    QQuickItem* item(const UIViewController& screen) const;

private:
    using Items = std::vector<QQuickItem*>;

    void showRoot();
    QQuickItem& show(UIViewController& screen, QQuickItem& stage);
    void showTabs(UITabBarController& tabs, QQuickItem& item);
    void showTab(UITabBarController& tabs, int index);
    void showStack(UINavigationController& stack, QQuickItem& item);
    void refreshStack(UINavigationController& stack);

    void present(UIViewController& screen, bool isAnimated, std::function<void()> done);
    void dismiss(const std::vector<UIViewController*>& screens, bool isAnimated, std::function<void()> done);
    void slide(UIViewController& moving, UIViewController& other, bool isComing, bool isAnimated,
               std::function<void()> done);
    void refreshInput();
    void afterFirstFrame(std::function<void()> work);

    QQuickWindow& m_quickWindow;
    UIWindow& m_window;
    ScreenFactory& m_factory;
    std::unordered_map<const UIViewController*, std::unique_ptr<QQuickItem>> m_items;
    bool m_hasShownFrame = false;
    int m_sliding = 0;
};

} // namespace reelsmith
