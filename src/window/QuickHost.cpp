// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/QuickHost.h"

#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UITabBarController.h"
#include "platform/uikit/UIWindow.h"
#include "window/Animation.h"
#include "window/ScreenFactory.h"

#include <QPointer>
#include <QQmlListReference>
#include <QQuickItem>
#include <QQuickWindow>

namespace reelsmith {

namespace {

std::chrono::milliseconds duration(const QQuickItem* item, const char* property, bool isAnimated) {
    return std::chrono::milliseconds(isAnimated && item != nullptr ? item->property(property).toInt() : 0);
}

// Items of the screens of a container fill what the container's own interface sets apart for them.
void fill(QQuickItem& item, QQuickItem& stage) {
    const auto resize = [item = &item, stage = &stage] { item->setSize(stage->size()); };
    item.setParentItem(&stage);
    resize();
    QObject::connect(&stage, &QQuickItem::widthChanged, &item, resize);
    QObject::connect(&stage, &QQuickItem::heightChanged, &item, resize);
}

QQuickItem& stageOf(QQuickItem& container, int index) {
    return *qobject_cast<QQuickItem*>(QQmlListReference(&container, "stages").at(index));
}

} // namespace

QuickHost::QuickHost(QQuickWindow& quickWindow, UIWindow& window, ScreenFactory& factory)
    : m_quickWindow(quickWindow), m_window(window), m_factory(factory) {
    window.setDriver(*this, factory);
    connect(&window, &UIWindow::rootViewControllerChanged, this, &QuickHost::showRoot);
    connect(&window.presentations(), &PresentationList::changed, this, &QuickHost::refreshInput);
    connect(
        &quickWindow, &QQuickWindow::frameSwapped, this, [this] { m_hasShownFrame = true; },
        Qt::QueuedConnection);
}

QuickHost::~QuickHost() = default;

QQuickItem* QuickHost::item(const UIViewController& screen) const {
    const auto found = m_items.find(&screen);
    return found == m_items.end() ? nullptr : found->second.get();
}

void QuickHost::showRoot() {
    if (UIViewController* root = m_window.rootViewController(); root != nullptr && m_window.isVisible())
        show(*root, *m_quickWindow.contentItem());
    refreshInput();
}

QQuickItem& QuickHost::show(UIViewController& screen, QQuickItem& stage) {
    if (QQuickItem* shown = item(screen))
        return *shown;
    screen.loadViewIfNeeded();
    auto& made = m_items[&screen];
    made = m_factory.makeItem(screen);
    fill(*made, stage);
    if (auto* tabs = qobject_cast<UITabBarController*>(&screen))
        showTabs(*tabs, *made);
    else if (auto* stack = qobject_cast<UINavigationController*>(&screen))
        showStack(*stack, *made);
    return *made;
}

void QuickHost::showTabs(UITabBarController& tabs, QQuickItem& item) {
    showTab(tabs, tabs.selectedIndex());
    connect(&tabs, &UITabBarController::selectedIndexChanged, &item, [this, tabs = &tabs] {
        showTab(*tabs, tabs->selectedIndex());
        refreshInput();
    });
    // The hidden tabs need not keep the first frame waiting.
    afterFirstFrame([this, tabs = QPointer(&tabs)] {
        for (int i = 0; tabs && i < static_cast<int>(tabs->viewControllers().size()); ++i)
            showTab(*tabs, i);
    });
}

void QuickHost::showTab(UITabBarController& tabs, int index) {
    if (QQuickItem* container = item(tabs))
        show(*tabs.viewControllers().at(static_cast<std::size_t>(index)), stageOf(*container, index));
}

void QuickHost::showStack(UINavigationController& stack, QQuickItem& item) {
    connect(&stack, &UINavigationController::stackChanged, &item,
            [this, stack = &stack] { refreshStack(*stack); });
    refreshStack(stack);
}

// Outside of a push or pop only the uppermost screen is seen.
void QuickHost::refreshStack(UINavigationController& stack) {
    QQuickItem* const container = item(stack);
    UIViewController* const top = stack.topViewController();
    if (container == nullptr || top == nullptr)
        return;
    show(*top, stageOf(*container, 0));
    if (m_sliding > 0)
        return;
    for (UIViewController* screen : stack.viewControllers()) {
        if (QQuickItem* shown = item(*screen))
            shown->setVisible(screen == top);
    }
}

void QuickHost::run(const Transition& transition, std::function<void()> done) {
    const bool isAnimated = transition.animated == Animated::Yes;
    switch (transition.kind) {
    case Transition::Kind::Present:
        present(*transition.screens.front(), isAnimated, std::move(done));
        break;
    case Transition::Kind::Dismiss:
        dismiss(transition.screens, isAnimated, std::move(done));
        break;
    case Transition::Kind::Push:
        slide(*transition.screens.front(), *transition.other, true, isAnimated, std::move(done));
        break;
    case Transition::Kind::Pop:
        slide(*transition.screens.back(), *transition.other, false, isAnimated, std::move(done));
        break;
    }
}

void QuickHost::present(UIViewController& screen, bool isAnimated, std::function<void()> done) {
    QQuickItem& shown = show(screen, *m_quickWindow.contentItem());
    refreshInput();
    animate(*this, {{&shown, "presence", 0, 1}}, duration(&shown, "appearDuration", isAnimated),
            QEasingCurve::Linear, std::move(done));
}

void QuickHost::dismiss(const std::vector<UIViewController*>& screens, bool isAnimated,
                        std::function<void()> done) {
    std::vector<Movement> movements;
    for (UIViewController* screen : screens) {
        if (QQuickItem* shown = item(*screen))
            movements.push_back({shown, "presence", shown->property("presence").toReal(), 0});
    }
    const auto time = duration(item(*screens.front()), "disappearDuration", isAnimated);
    animate(*this, std::move(movements), time, QEasingCurve::Linear, std::move(done));
}

void QuickHost::slide(UIViewController& moving, UIViewController& other, bool isComing, bool isAnimated,
                      std::function<void()> done) {
    QQuickItem* const stage = item(*other.parent());
    QQuickItem* const mover = item(moving);
    QQuickItem* const stayer = stage != nullptr ? &show(other, stageOf(*stage, 0)) : nullptr;
    for (QQuickItem* shown : {mover, stayer}) {
        if (shown != nullptr)
            shown->setVisible(true);
    }
    ++m_sliding;
    const qreal begin = isComing ? 1 : 0;
    std::vector<Movement> movements{{mover, "slide", begin, 1 - begin}, {stayer, "slide", begin - 1, -begin}};
    animate(*this, std::move(movements), duration(mover, "appearDuration", isAnimated), QEasingCurve::Linear,
            [this, stack = QPointer(other.navigationController()), done = std::move(done)] {
                --m_sliding;
                done();
                if (stack)
                    refreshStack(*stack);
                refreshInput();
            });
}

void QuickHost::willRelease(UIViewController& screen) {
    if (auto* tabs = qobject_cast<UITabBarController*>(&screen)) {
        for (UIViewController* held : tabs->viewControllers())
            willRelease(*held);
    } else if (auto* stack = qobject_cast<UINavigationController*>(&screen)) {
        for (UIViewController* held : stack->viewControllers())
            willRelease(*held);
    }
    m_items.erase(&screen);
}

// Only the uppermost screen gets taps and keys.
void QuickHost::refreshInput() {
    UIViewController* const front = m_window.frontmost();
    for (const auto& [screen, shown] : m_items) {
        if (screen->parent() == nullptr)
            shown->setEnabled(screen == front && !screen->isBeingDismissed());
    }
    if (QQuickItem* shown = front != nullptr ? item(*front) : nullptr; shown != nullptr && shown->isEnabled())
        shown->forceActiveFocus();
}

void QuickHost::afterFirstFrame(std::function<void()> work) {
    if (m_hasShownFrame) {
        work();
        return;
    }
    connect(
        &m_quickWindow, &QQuickWindow::frameSwapped, this, [work = std::move(work)] { work(); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

} // namespace reelsmith
