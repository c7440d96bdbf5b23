// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/Animated.h"
#include "platform/uikit/IndexPath.h"
#include "platform/uikit/UIViewController.h"
#include "platform/uikit/View.h"

#include <memory>
#include <optional>
#include <utility>

namespace reelsmith {

/// A screen that is one table, with rows that stand in its interface file. Main thread.
class UITableViewController : public reelsmith::UIViewController {
    Q_OBJECT

public:
    /// Selects a row, as a tap does: it stays selected until the screen lets go of it.
    Q_INVOKABLE void selectRow(int section, int row) {
        m_selectedRow = IndexPath{section, row};
        tableViewDidSelectRowAt(*m_selectedRow);
    }
    const std::optional<IndexPath>& indexPathForSelectedRow() const { return m_selectedRow; }

    /// What stands below the last row, where a table without one draws the lines of further rows; may be
    /// null.
    View* tableFooterView() const { return m_tableFooterView.get(); }
    void setTableFooterView(std::unique_ptr<View> view) { m_tableFooterView = std::move(view); }

protected:
    virtual void tableViewDidSelectRowAt(const IndexPath& path) = 0;

    void deselectRow(const IndexPath& path, Animated /*animated*/) {
        if (m_selectedRow == path)
            m_selectedRow.reset();
    }

private:
    std::optional<IndexPath> m_selectedRow;
    std::unique_ptr<View> m_tableFooterView;
};

} // namespace reelsmith
