// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/UIViewController.h"

#include <memory>
#include <vector>

namespace reelsmith {

/// Several screens side by side, one of them seen, and a bar to choose it with. Owns its screens. Main
/// thread.
class UITabBarController : public reelsmith::UIViewController {
    Q_OBJECT
    Q_PROPERTY(int selectedIndex READ selectedIndex WRITE setSelectedIndex NOTIFY selectedIndexChanged)
    Q_PROPERTY(bool isTabBarHidden READ isTabBarHidden NOTIFY tabsChanged)
    Q_PROPERTY(QStringList tabTitles READ tabTitles NOTIFY tabsChanged)
    Q_PROPERTY(QStringList tabImages READ tabImages NOTIFY tabsChanged)

public:
    /// One tab's screen, and the name of the image above its title.
    struct Tab {
        std::unique_ptr<UIViewController> screen;
        QString imageName;
    };

    /// How the bar is drawn; names and numbers of the platform, for the theme to look up.
    struct TabBarAppearance {
        int blurStyle = -1; ///< none below 0
        QString normalIconColorName;
        QString normalTitleColorName;
        qreal normalTitleAlpha = 1;

        bool operator==(const TabBarAppearance&) const = default;
    };

    UITabBarController();
    ~UITabBarController() override;

    std::vector<UIViewController*> viewControllers() const;
    /// Once, before the screen is shown.
    void setTabs(std::vector<Tab> tabs);

    int selectedIndex() const { return m_selectedIndex; }
    void setSelectedIndex(int index);
    UIViewController* selectedViewController() const;

    QStringList tabTitles() const; ///< those of the tabs' screens
    QStringList tabImages() const;
    bool isTabBarHidden() const;

    const TabBarAppearance& standardAppearance() const { return m_standardAppearance; }
    const TabBarAppearance& scrollEdgeAppearance() const { return m_scrollEdgeAppearance; }
    void setAppearances(const TabBarAppearance& standard, const TabBarAppearance& scrollEdge);

    bool goBack() override;

signals:
    void tabsChanged();
    void selectedIndexChanged();

protected:
    UIViewController* visibleChild() const override { return selectedViewController(); }

private:
    std::vector<Tab> m_tabs;
    int m_selectedIndex = 0;
    TabBarAppearance m_standardAppearance;
    TabBarAppearance m_scrollEdgeAppearance;
};

} // namespace reelsmith
