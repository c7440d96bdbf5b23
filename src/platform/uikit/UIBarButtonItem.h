// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <utility>

namespace reelsmith {

/// One thing in a toolbar.
class UIBarButtonItem : public QObject {
    Q_OBJECT
    Q_PROPERTY(SystemItem systemItem READ systemItem CONSTANT)

public:
    enum SystemItem { Action, FlexibleSpace, Trash };
    Q_ENUM(SystemItem)

    explicit UIBarButtonItem(SystemItem item, std::function<void()> action = {})
        : m_item(item), m_action(std::move(action)) {}

    SystemItem systemItem() const { return m_item; }

    Q_INVOKABLE void tap() const {
        if (m_action)
            m_action();
    }

private:
    const SystemItem m_item;
    const std::function<void()> m_action;
};

} // namespace reelsmith
