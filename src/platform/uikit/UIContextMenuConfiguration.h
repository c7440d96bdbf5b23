// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <vector>

namespace reelsmith {

/// One entry of a menu.
struct UIAction {
    enum class Style { Normal, Destructive };

    QString title;
    QString systemImage; ///< the platform's name of its icon
    Style style = Style::Normal;
    std::function<void()> handler; ///< runs when the menu has gone
};

/// What a context menu holds.
struct UIContextMenuConfiguration {
    QString title; ///< empty for none
    std::vector<UIAction> actions;
};

} // namespace reelsmith
