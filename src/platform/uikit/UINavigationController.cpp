// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UINavigationController.h"

#include "platform/uikit/UIWindow.h"

#include <algorithm>
#include <utility>

namespace reelsmith {

UINavigationController::UINavigationController(std::unique_ptr<UIViewController> root) {
    put(std::move(root));
}

UINavigationController::~UINavigationController() = default;

void UINavigationController::put(std::unique_ptr<UIViewController> screen) {
    adopt(*screen);
    connect(screen.get(), &UIViewController::titleChanged, this, &UINavigationController::stackChanged);
    connect(screen.get(), &UIViewController::toolbarItemsChanged, this,
            &UINavigationController::stackChanged);
    m_stack.push_back(std::move(screen));
}

TransitionDriver* UINavigationController::driver() const {
    UIWindow* shownIn = window();
    return shownIn != nullptr && isVisible() ? &shownIn->driver() : nullptr;
}

std::vector<UIViewController*> UINavigationController::viewControllers() const {
    std::vector<UIViewController*> screens;
    for (const auto& screen : m_stack)
        screens.push_back(screen.get());
    return screens;
}

UIViewController* UINavigationController::topViewController() const {
    return m_stack.empty() ? nullptr : m_stack.back().get();
}

void UINavigationController::pushViewController(std::unique_ptr<UIViewController> screen, Animated animated) {
    auto held = std::make_shared<std::unique_ptr<UIViewController>>(std::move(screen));
    m_queue.add([this, held, animated](const TransitionQueue::Done& done) {
        UIViewController* const below = topViewController();
        UIViewController* const pushed = held->get();
        const bool isSeen = isIn();
        put(std::move(*held));
        pushed->loadViewIfNeeded();
        if (isSeen) {
            pushed->beginAppearanceTransition(true);
            below->beginAppearanceTransition(false);
        }
        emit stackChanged();
        const auto ended = [pushed = QPointer(pushed), below = QPointer(below), done] {
            if (pushed)
                pushed->endAppearanceTransition();
            if (below)
                below->endAppearanceTransition();
            done();
        };
        if (TransitionDriver* shownBy = driver())
            shownBy->run({Transition::Kind::Push, {pushed}, below, animated}, ended);
        else
            ended();
    });
}

void UINavigationController::popViewController(UIViewController& screen, Animated animated) {
    if (std::ranges::find(m_leaving, &screen) != m_leaving.end())
        return;
    m_leaving.push_back(&screen);
    m_queue.add([this, going = QPointer(&screen), animated](const TransitionQueue::Done& done) {
        if (going)
            pop(*going, animated, done);
        else
            done();
    });
}

void UINavigationController::pop(UIViewController& screen, Animated animated,
                                 const TransitionQueue::Done& done) {
    std::erase(m_leaving, &screen);
    const auto first =
        std::ranges::find_if(m_stack, [&screen](const auto& held) { return held.get() == &screen; });
    if (first == m_stack.begin() || first == m_stack.end()) {
        done();
        return;
    }
    std::vector<UIViewController*> going;
    for (auto held = first; held != m_stack.end(); ++held)
        going.push_back(held->get());
    auto released = std::make_shared<std::vector<std::unique_ptr<UIViewController>>>(
        std::make_move_iterator(first), std::make_move_iterator(m_stack.end()));
    m_stack.erase(first, m_stack.end());
    UIViewController* const uncovered = topViewController();
    const bool isSeen = isIn();
    if (isSeen) {
        going.back()->beginAppearanceTransition(false);
        uncovered->beginAppearanceTransition(true);
    }
    emit stackChanged();
    const auto ended = [self = QPointer(this), released, uncovered = QPointer(uncovered), done] {
        released->back()->endAppearanceTransition();
        if (uncovered)
            uncovered->endAppearanceTransition();
        if (self)
            self->release(std::move(*released));
        done();
    };
    if (TransitionDriver* shownBy = driver())
        shownBy->run({Transition::Kind::Pop, going, uncovered, animated}, ended);
    else
        ended();
}

void UINavigationController::release(std::vector<std::unique_ptr<UIViewController>> screens) {
    UIWindow* shownIn = window();
    while (!screens.empty()) {
        if (shownIn != nullptr)
            shownIn->driver().willRelease(*screens.back());
        screens.pop_back();
    }
}

void UINavigationController::setRootViewController(std::unique_ptr<UIViewController> root) {
    auto released = std::exchange(m_stack, {});
    put(std::move(root));
    visibleChildChanged(*released.back(), *m_stack.back());
    emit stackChanged();
    release(std::move(released));
}

void UINavigationController::setNavigationBarHidden(bool hidden, Animated /*animated*/) {
    m_isNavigationBarHidden = hidden;
    emit stackChanged();
}

void UINavigationController::setToolbarHidden(bool hidden, Animated /*animated*/) {
    m_isToolbarHidden = hidden;
    emit stackChanged();
}

void UINavigationController::setAppearances(const BarAppearance& standard, const BarAppearance& scrollEdge) {
    m_standardAppearance = standard;
    m_scrollEdgeAppearance = scrollEdge;
}

QString UINavigationController::barTitle() const {
    return m_stack.empty() ? QString() : m_stack.back()->title();
}

bool UINavigationController::hidesBottomBar() const {
    return std::ranges::any_of(m_stack,
                               [](const auto& screen) { return screen->hidesBottomBarWhenPushed(); });
}

QVariantList UINavigationController::barItems() const {
    QVariantList items;
    if (UIViewController* top = topViewController()) {
        for (const auto& item : top->toolbarItems())
            items.append(QVariant::fromValue<QObject*>(item.get()));
    }
    return items;
}

bool UINavigationController::goBack() {
    if (m_stack.empty() || isAtRoot())
        return UIViewController::goBack();
    popViewController(*m_stack.back(), Animated::Yes);
    return true;
}

} // namespace reelsmith
