// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UIAlertController.h"

#include <QVariantMap>
#include <algorithm>
#include <utility>

namespace reelsmith {

namespace {

QString styleName(UIAlertController::ActionStyle style) {
    switch (style) {
    case UIAlertController::ActionStyle::Default:
        return QStringLiteral("default");
    case UIAlertController::ActionStyle::Cancel:
        return QStringLiteral("cancel");
    case UIAlertController::ActionStyle::Destructive:
        return QStringLiteral("destructive");
    }
    Q_UNREACHABLE();
}

} // namespace

UIAlertController::UIAlertController(const QString& title, const QString& message, Style style)
    : m_message(message), m_style(style) {
    setTitle(title);
    setModalPresentationStyle(UIModalPresentationStyle::OverCurrentContext);
    setModalTransitionStyle(UIModalTransitionStyle::CrossDissolve);
}

std::unique_ptr<UIAlertController> UIAlertController::notice(const QString& title, const QString& message,
                                                             const QString& button) {
    auto alert = std::make_unique<UIAlertController>(title, message, Style::Alert);
    alert->addAction(button, ActionStyle::Default);
    return alert;
}

void UIAlertController::addAction(const QString& title, ActionStyle style, std::function<void()> handler) {
    m_actions.push_back({title, style, std::move(handler)});
    emit actionsChanged();
}

QVariantList UIAlertController::actions() const {
    QVariantList list;
    for (const Action& action : m_actions) {
        list.append(QVariantMap{{QStringLiteral("title"), action.title},
                                {QStringLiteral("style"), styleName(action.style)}});
    }
    return list;
}

void UIAlertController::press(int index) {
    if (isBeingDismissed() || index < 0 || std::cmp_greater_equal(index, m_actions.size()))
        return;
    dismiss(Animated::Yes, m_actions.at(static_cast<std::size_t>(index)).handler);
}

QString UIAlertController::interfaceName() const {
    return isActionSheet() ? QStringLiteral("UIAlertActionSheet") : UIViewController::interfaceName();
}

bool UIAlertController::goBack() {
    const auto cancel = std::ranges::find(m_actions, ActionStyle::Cancel, &Action::style);
    if (cancel == m_actions.end() && m_actions.size() != 1)
        return false;
    press(cancel == m_actions.end() ? 0 : static_cast<int>(cancel - m_actions.begin()));
    return true;
}

} // namespace reelsmith
