// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UITabBarController.h"

#include "platform/uikit/UINavigationController.h"

#include <utility>

namespace reelsmith {

UITabBarController::UITabBarController() = default;
UITabBarController::~UITabBarController() = default;

std::vector<UIViewController*> UITabBarController::viewControllers() const {
    std::vector<UIViewController*> screens;
    for (const Tab& tab : m_tabs)
        screens.push_back(tab.screen.get());
    return screens;
}

void UITabBarController::setTabs(std::vector<Tab> tabs) {
    m_tabs = std::move(tabs);
    for (const Tab& tab : m_tabs) {
        adopt(*tab.screen);
        connect(tab.screen.get(), &UIViewController::titleChanged, this, &UITabBarController::tabsChanged);
        if (auto* stack = qobject_cast<UINavigationController*>(tab.screen.get()))
            connect(stack, &UINavigationController::stackChanged, this, &UITabBarController::tabsChanged);
    }
    emit tabsChanged();
}

UIViewController* UITabBarController::selectedViewController() const {
    return m_tabs.empty() ? nullptr : m_tabs.at(static_cast<std::size_t>(m_selectedIndex)).screen.get();
}

void UITabBarController::setSelectedIndex(int index) {
    if (index == m_selectedIndex || index < 0 || std::cmp_greater_equal(index, m_tabs.size()))
        return;
    UIViewController* const old = selectedViewController();
    m_selectedIndex = index;
    visibleChildChanged(*old, *selectedViewController());
    emit selectedIndexChanged();
    emit tabsChanged();
}

QStringList UITabBarController::tabTitles() const {
    QStringList titles;
    for (const Tab& tab : m_tabs)
        titles.append(tab.screen->title());
    return titles;
}

QStringList UITabBarController::tabImages() const {
    QStringList images;
    for (const Tab& tab : m_tabs)
        images.append(tab.imageName);
    return images;
}

bool UITabBarController::isTabBarHidden() const {
    const auto* stack = qobject_cast<UINavigationController*>(selectedViewController());
    return stack != nullptr && stack->hidesBottomBar();
}

void UITabBarController::setAppearances(const TabBarAppearance& standard,
                                        const TabBarAppearance& scrollEdge) {
    m_standardAppearance = standard;
    m_scrollEdgeAppearance = scrollEdge;
}

bool UITabBarController::goBack() {
    UIViewController* selected = selectedViewController();
    return (selected != nullptr && selected->goBack()) || UIViewController::goBack();
}

} // namespace reelsmith
