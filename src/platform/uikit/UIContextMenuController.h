// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/ReusableCell.h"
#include "platform/uikit/UIContextMenuConfiguration.h"
#include "platform/uikit/UIViewController.h"

#include <QRectF>
#include <QVariantList>

namespace reelsmith {

/// An open context menu, with the cell that it belongs to lifted beside it. Main thread.
class UIContextMenuController : public reelsmith::UIViewController {
    Q_OBJECT
    Q_PROPERTY(QVariantList actions READ actions CONSTANT)
    Q_PROPERTY(reelsmith::ReusableCell* cell READ cell CONSTANT)
    Q_PROPERTY(QRectF cellFrame READ cellFrame CONSTANT)

public:
    /// Presents a menu in the key window, and lets the user feel it. `cellFrame`: where the cell is in the
    /// window, in points. Nothing happens without a window, or without any action.
    static void show(UIContextMenuConfiguration configuration, ReusableCell& cell, const QRectF& cellFrame);

    UIContextMenuController(UIContextMenuConfiguration configuration, ReusableCell& cell,
                            const QRectF& cellFrame);

    /// For each action: "title", "image" and "isDestructive".
    QVariantList actions() const;
    ReusableCell* cell() const; ///< null once it is gone
    const QRectF& cellFrame() const { return m_cellFrame; }

    /// Chooses the action at `index`. Nothing happens once the menu is going.
    Q_INVOKABLE void press(int index);

    /// Leaves without a choice.
    Q_INVOKABLE bool goBack() override { return UIViewController::goBack(); }

private:
    const UIContextMenuConfiguration m_configuration;
    const QPointer<ReusableCell> m_cell;
    const QRectF m_cellFrame;
};

} // namespace reelsmith
