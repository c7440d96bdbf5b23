// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UIWindow.h"

#include "platform/uikit/UIViewController.h"

#include <utility>

namespace reelsmith {

UIWindow::UIWindow() : m_presentations(m_noDriver) {}

UIWindow::~UIWindow() {
    releaseRoot();
}

void UIWindow::setDriver(TransitionDriver& driver, InterfaceLoader& loader) {
    m_driver = &driver;
    m_loader = &loader;
    m_presentations.setDriver(driver);
}

void UIWindow::setRootViewController(std::unique_ptr<UIViewController> root) {
    releaseRoot();
    m_root = std::move(root);
    if (m_root)
        m_root->setWindow(this);
    if (m_isVisible)
        showRoot();
    emit rootViewControllerChanged();
}

void UIWindow::makeKeyAndVisible() {
    if (std::exchange(m_isVisible, true))
        return;
    showRoot();
    emit rootViewControllerChanged();
}

void UIWindow::showRoot() {
    if (!m_root)
        return;
    m_root->beginAppearanceTransition(true);
    m_root->endAppearanceTransition();
}

void UIWindow::releaseRoot() {
    m_presentations.clear();
    if (!m_root)
        return;
    m_root->beginAppearanceTransition(false);
    m_root->endAppearanceTransition();
    m_driver->willRelease(*m_root);
    m_root.reset();
}

UIViewController* UIWindow::frontmost() const {
    UIViewController* presented = m_presentations.topmost();
    return presented != nullptr ? presented : m_root.get();
}

bool UIWindow::goBack() {
    UIViewController* screen = frontmost();
    return screen != nullptr && !screen->isBeingDismissed() && screen->goBack();
}

} // namespace reelsmith
