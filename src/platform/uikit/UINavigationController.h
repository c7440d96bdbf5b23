// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/TransitionQueue.h"
#include "platform/uikit/UIViewController.h"

#include <QVariantList>
#include <memory>
#include <vector>

namespace reelsmith {

class TransitionDriver;

/// A stack of screens of which the uppermost is seen, with a bar above it and perhaps a toolbar below. Owns
/// its screens. Main thread.
class UINavigationController : public reelsmith::UIViewController {
    Q_OBJECT
    Q_PROPERTY(QString barTitle READ barTitle NOTIFY stackChanged)
    Q_PROPERTY(bool isAtRoot READ isAtRoot NOTIFY stackChanged)
    Q_PROPERTY(bool isNavigationBarHidden READ isNavigationBarHidden NOTIFY stackChanged)
    Q_PROPERTY(bool isToolbarHidden READ isToolbarHidden NOTIFY stackChanged)
    Q_PROPERTY(bool hidesBottomBar READ hidesBottomBar NOTIFY stackChanged)
    Q_PROPERTY(QVariantList barItems READ barItems NOTIFY stackChanged)

public:
    /// How the bar is drawn; names and numbers of the platform, for the theme to look up.
    struct BarAppearance {
        QString shadowColorName;
        qreal shadowAlpha = 1;
        int blurStyle = -1; ///< none below 0
    };

    explicit UINavigationController(std::unique_ptr<UIViewController> root);
    ~UINavigationController() override;

    std::vector<UIViewController*> viewControllers() const; ///< from the root to the uppermost
    UIViewController* topViewController() const;

    void pushViewController(std::unique_ptr<UIViewController> screen, Animated animated);

    /// Takes `screen` and all above it off the stack. Nothing happens for the root and for screens that are
    /// not, or no longer, in the stack.
    void popViewController(UIViewController& screen, Animated animated);

    /// Replaces the whole stack by one screen, at once.
    void setRootViewController(std::unique_ptr<UIViewController> root);

    bool isNavigationBarHidden() const { return m_isNavigationBarHidden; }
    void setNavigationBarHidden(bool hidden, Animated animated);

    bool isToolbarHidden() const { return m_isToolbarHidden; }
    void setToolbarHidden(bool hidden, Animated animated);

    const BarAppearance& standardAppearance() const { return m_standardAppearance; }
    const BarAppearance& scrollEdgeAppearance() const { return m_scrollEdgeAppearance; }
    void setAppearances(const BarAppearance& standard, const BarAppearance& scrollEdge);

    QString barTitle() const; ///< the uppermost screen's title
    bool isAtRoot() const { return m_stack.size() == 1; }
    bool hidesBottomBar() const;
    QVariantList barItems() const; ///< the uppermost screen's, as objects

    /// Pops the uppermost screen; a presented stack with nothing to pop goes itself.
    Q_INVOKABLE bool goBack() override;

signals:
    /// The stack, or what a bar shows of it, is another.
    void stackChanged();

protected:
    UIViewController* visibleChild() const override { return topViewController(); }

private:
    void put(std::unique_ptr<UIViewController> screen);
    void pop(UIViewController& screen, Animated animated, const TransitionQueue::Done& done);
    void release(std::vector<std::unique_ptr<UIViewController>> screens);
    TransitionDriver* driver() const;

    std::vector<std::unique_ptr<UIViewController>> m_stack;
    std::vector<UIViewController*> m_leaving;
    TransitionQueue m_queue;
    BarAppearance m_standardAppearance;
    BarAppearance m_scrollEdgeAppearance;
    bool m_isNavigationBarHidden = false;
    bool m_isToolbarHidden = true;
};

} // namespace reelsmith
