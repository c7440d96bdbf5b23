// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/InterfaceLoader.h"
#include "platform/uikit/PresentationList.h"
#include "platform/uikit/TransitionDriver.h"

#include <QObject>
#include <memory>

namespace reelsmith {

class UIViewController;

/// The application's window as its controllers know it: one root screen, and the list of those presented over
/// it. Main thread.
class UIWindow : public QObject {
    Q_OBJECT

public:
    UIWindow();
    ~UIWindow() override;

    /// What shows the screens; both must outlive the window or be replaced. Before any: nothing is shown.
    void setDriver(TransitionDriver& driver, InterfaceLoader& loader);
    TransitionDriver& driver() const { return *m_driver; }
    InterfaceLoader& interfaceLoader() const { return *m_loader; }

    UIViewController* rootViewController() const { return m_root.get(); }
    /// Takes the place of the root that there was, at once, with all that was presented over it.
    void setRootViewController(std::unique_ptr<UIViewController> root);

    /// From now on the root is on the screen.
    void makeKeyAndVisible();
    bool isVisible() const { return m_isVisible; }

    PresentationList& presentations() { return m_presentations; }

    /// The screen that takes input now: the uppermost one. Null for none.
    UIViewController* frontmost() const;

    /// What Escape or the back button does on the frontmost screen.
    Q_INVOKABLE bool goBack();

signals:
    void rootViewControllerChanged();

private:
    void showRoot();
    void releaseRoot();

    TransitionDriver m_noDriver;
    InterfaceLoader m_noLoader;
    TransitionDriver* m_driver = &m_noDriver;
    InterfaceLoader* m_loader = &m_noLoader;
    std::unique_ptr<UIViewController> m_root;
    PresentationList m_presentations;
    bool m_isVisible = false;
};

} // namespace reelsmith
