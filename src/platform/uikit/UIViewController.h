// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/Animated.h"
#include "platform/uikit/NSCoder.h"
#include "platform/uikit/UIBarButtonItem.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

namespace reelsmith {

class UINavigationController;
class UITabBarController;
class UIWindow;

enum class UIModalPresentationStyle {
    FullScreen,         ///< takes the presenter's place, and closes with a button of the platform's own
    OverCurrentContext, ///< the presenter stays visible behind it
    Popover,            ///< like a sheet; on a tablet-class window at its anchor
};

enum class UIModalTransitionStyle { CoverVertical, CrossDissolve };

/// One screen, or a container of screens. Main thread. Its looks are an interface file named after its class.
class UIViewController : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)

public:
    using Completion = std::function<void()>;

    UIViewController();
    /// Stops the application: no screen is made from an archive.
    [[noreturn]] explicit UIViewController(const NSCoder& coder);
    ~UIViewController() override;

    const QString& title() const { return m_title; }
    void setTitle(const QString& title);

    UIModalPresentationStyle modalPresentationStyle() const { return m_presentationStyle; }
    void setModalPresentationStyle(UIModalPresentationStyle style) { m_presentationStyle = style; }
    UIModalTransitionStyle modalTransitionStyle() const { return m_transitionStyle; }
    void setModalTransitionStyle(UIModalTransitionStyle style) { m_transitionStyle = style; }
    bool isFullScreen() const { return m_presentationStyle == UIModalPresentationStyle::FullScreen; }

    /// The screen that holds this one; null for a root or a presented screen.
    UIViewController* parent() const { return m_parent; }
    UINavigationController* navigationController() const;
    UITabBarController* tabBarController() const;

    /// The window that this screen belongs to, shown or about to be; null for none.
    UIWindow* window() const;
    void setWindow(UIWindow* window);

    /// The last screen that this one, or the nearest container of it, presents; null for none.
    UIViewController* presentedViewController() const;
    /// Whether the screen has been asked to go.
    bool isBeingDismissed() const;

    /// Puts `screen` on top of everything, after the changes asked for before. It belongs to this screen, or
    /// to the outermost container of it. `completion` runs when it stands. Without a window nothing happens.
    void present(std::unique_ptr<UIViewController> screen, Animated animated, Completion completion = {});

    /// Takes away the last screen that this one or its nearest container presents, else this one, and all
    /// that it presents; which one is settled at this call. With none to take, only `completion` runs, later.
    void dismiss(Animated animated, Completion completion = {});

    /// What Escape or the back button does: by default, leaves a presented screen. Answers whether anything
    /// was done.
    virtual bool goBack();

    /// Makes the interface ready and calls viewDidLoad(), once. A missing interface file is fatal.
    void loadViewIfNeeded();
    bool isViewLoaded() const { return m_isViewLoaded; }
    bool isVisible() const { return m_appearance == Appearance::Appeared; }

    /// The name of the interface file: that of the class.
    virtual QString interfaceName() const;

    /// Tells the screen, and the visible ones that it holds, that it is about to come or go. Calls that
    /// change nothing are ignored.
    void beginAppearanceTransition(bool isAppearing);
    void endAppearanceTransition();

    /// What a navigation controller shows in its toolbar, from left to right.
    const std::vector<std::unique_ptr<UIBarButtonItem>>& toolbarItems() const { return m_toolbarItems; }
    void setToolbarItems(std::vector<std::unique_ptr<UIBarButtonItem>> items);

    /// Whether the tab bar makes room while this screen is pushed.
    bool hidesBottomBarWhenPushed() const { return m_hidesBottomBarWhenPushed; }
    void setHidesBottomBarWhenPushed(bool hides) { m_hidesBottomBarWhenPushed = hides; }

signals:
    void titleChanged();
    void toolbarItemsChanged();

protected:
    virtual void viewDidLoad() {}
    virtual void viewWillAppear() {}
    virtual void viewDidAppear() {}
    virtual void viewWillDisappear() {}
    virtual void viewDidDisappear() {}

    /// The screen that a container shows now.
    virtual UIViewController* visibleChild() const { return nullptr; }
    void adopt(UIViewController& child) { child.m_parent = this; }
    /// Whether this screen is seen or coming into sight.
    bool isIn() const {
        return m_appearance == Appearance::Appearing || m_appearance == Appearance::Appeared;
    }
    /// Tells both that a container shows `now` from here on instead of `old`, at whatever turn it is itself.
    void visibleChildChanged(UIViewController& old, UIViewController& now);

private:
    enum class Appearance { Disappeared, Appearing, Appeared, Disappearing };

    UIViewController& outermost();

    QString m_title;
    QPointer<UIViewController> m_parent;
    QPointer<UIWindow> m_window;
    UIModalPresentationStyle m_presentationStyle = UIModalPresentationStyle::FullScreen;
    UIModalTransitionStyle m_transitionStyle = UIModalTransitionStyle::CoverVertical;
    Appearance m_appearance = Appearance::Disappeared;
    bool m_isViewLoaded = false;
    bool m_hidesBottomBarWhenPushed = false;
    std::vector<std::unique_ptr<UIBarButtonItem>> m_toolbarItems;
};

} // namespace reelsmith
