// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/UIViewController.h"

#include <functional>
#include <vector>

namespace reelsmith {

/// A short message with buttons, or a list of choices. Goes when one is pressed. Main thread.
class UIAlertController : public reelsmith::UIViewController {
    Q_OBJECT
    Q_PROPERTY(QString message READ message CONSTANT)
    Q_PROPERTY(bool isActionSheet READ isActionSheet CONSTANT)
    Q_PROPERTY(QVariantList actions READ actions NOTIFY actionsChanged)

public:
    enum class Style { Alert, ActionSheet };
    enum class ActionStyle { Default, Cancel, Destructive };

    UIAlertController(const QString& title, const QString& message, Style style);

    /// An alert with one button, which only closes it.
    static std::unique_ptr<UIAlertController> notice(const QString& title, const QString& message,
                                                     const QString& button = QStringLiteral("ok"));

    const QString& message() const { return m_message; }
    bool isActionSheet() const { return m_style == Style::ActionSheet; }

    /// Adds a button after those that there are. `handler` runs when the alert has gone.
    void addAction(const QString& title, ActionStyle style, std::function<void()> handler = {});

    /// For each action: "title", and "style" as "default", "cancel" or "destructive".
    QVariantList actions() const;

    /// Presses the button at `index`. Nothing happens once the alert is going.
    Q_INVOKABLE void press(int index);

    /// Presses the cancel button, else the only one.
    Q_INVOKABLE bool goBack() override;

    /// An action sheet has one of its own, "UIAlertActionSheet".
    QString interfaceName() const override;

signals:
    void actionsChanged();

private:
    struct Action {
        QString title;
        ActionStyle style;
        std::function<void()> handler;
    };

    const QString m_message;
    const Style m_style;
    std::vector<Action> m_actions;
};

} // namespace reelsmith
