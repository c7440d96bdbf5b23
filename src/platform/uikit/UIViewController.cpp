// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UIViewController.h"

#include "platform/foundation/FatalError.h"
#include "platform/uikit/PresentationList.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UITabBarController.h"
#include "platform/uikit/UIWindow.h"

#include <utility>

namespace reelsmith {

UIViewController::UIViewController() = default;

UIViewController::UIViewController(const NSCoder& /*coder*/) {
    fatalError("init(coder:) has not been implemented", "platform/uikit/UIViewController", __LINE__);
}

UIViewController::~UIViewController() = default;

void UIViewController::setTitle(const QString& title) {
    if (title == m_title)
        return;
    m_title = title;
    emit titleChanged();
}

void UIViewController::setWindow(UIWindow* window) {
    m_window = window;
}

UIWindow* UIViewController::window() const {
    return m_parent ? m_parent->window() : m_window.get();
}

UINavigationController* UIViewController::navigationController() const {
    auto* controller = qobject_cast<UINavigationController*>(m_parent.get());
    return controller != nullptr || !m_parent ? controller : m_parent->navigationController();
}

UITabBarController* UIViewController::tabBarController() const {
    auto* controller = qobject_cast<UITabBarController*>(m_parent.get());
    return controller != nullptr || !m_parent ? controller : m_parent->tabBarController();
}

UIViewController& UIViewController::outermost() {
    return m_parent ? m_parent->outermost() : *this;
}

UIViewController* UIViewController::presentedViewController() const {
    UIWindow* shownIn = window();
    if (shownIn == nullptr)
        return nullptr;
    for (const UIViewController* screen = this; screen != nullptr; screen = screen->parent()) {
        if (UIViewController* presented = shownIn->presentations().lastPresentedBy(*screen))
            return presented;
    }
    return nullptr;
}

bool UIViewController::isBeingDismissed() const {
    UIWindow* shownIn = window();
    return shownIn != nullptr && shownIn->presentations().isLeaving(*this);
}

void UIViewController::present(std::unique_ptr<UIViewController> screen, Animated animated,
                               Completion completion) {
    UIWindow* shownIn = window();
    if (shownIn == nullptr)
        return;
    screen->setWindow(shownIn);
    shownIn->presentations().present(std::move(screen), outermost(), animated, std::move(completion));
}

void UIViewController::dismiss(Animated animated, Completion completion) {
    UIWindow* shownIn = window();
    if (shownIn == nullptr)
        return;
    PresentationList& list = shownIn->presentations();
    UIViewController* target = presentedViewController();
    if (target == nullptr && list.contains(outermost()))
        target = &outermost();
    list.dismiss(target, animated, std::move(completion));
}

bool UIViewController::goBack() {
    UIWindow* shownIn = window();
    if (shownIn == nullptr || !shownIn->presentations().contains(*this))
        return false;
    dismiss(Animated::Yes);
    return true;
}

QString UIViewController::interfaceName() const {
    return QString::fromLatin1(metaObject()->className()).section(QStringLiteral("::"), -1);
}

void UIViewController::loadViewIfNeeded() {
    if (m_isViewLoaded)
        return;
    m_isViewLoaded = true;
    if (UIWindow* shownIn = window()) {
        if (const auto loaded = shownIn->interfaceLoader().load(interfaceName()); !loaded) {
            const QString text = QStringLiteral("The interface file \"%1\" cannot be loaded: %2")
                                     .arg(interfaceName(), loaded.error().localizedDescription);
            fatalError(text.toStdString(), "platform/uikit/UIViewController", __LINE__);
        }
    }
    viewDidLoad();
}

void UIViewController::beginAppearanceTransition(bool isAppearing) {
    if (isIn() == isAppearing)
        return;
    if (isAppearing)
        loadViewIfNeeded();
    m_appearance = isAppearing ? Appearance::Appearing : Appearance::Disappearing;
    if (isAppearing)
        viewWillAppear();
    else
        viewWillDisappear();
    if (UIViewController* child = visibleChild())
        child->beginAppearanceTransition(isAppearing);
}

void UIViewController::endAppearanceTransition() {
    if (m_appearance == Appearance::Appearing) {
        m_appearance = Appearance::Appeared;
        viewDidAppear();
    } else if (m_appearance == Appearance::Disappearing) {
        m_appearance = Appearance::Disappeared;
        viewDidDisappear();
    }
    if (UIViewController* child = visibleChild())
        child->endAppearanceTransition();
}

void UIViewController::visibleChildChanged(UIViewController& old, UIViewController& now) {
    if (isIn()) {
        now.beginAppearanceTransition(true);
        old.beginAppearanceTransition(false);
    }
    // While the container itself is on its way, its own end is that of the screen that it shows.
    if (m_appearance == Appearance::Appeared)
        now.endAppearanceTransition();
    old.endAppearanceTransition();
}

void UIViewController::setToolbarItems(std::vector<std::unique_ptr<UIBarButtonItem>> items) {
    m_toolbarItems.swap(items);
    emit toolbarItemsChanged();
}

} // namespace reelsmith
