// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UIContextMenuController.h"

#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIImpactFeedbackGenerator.h"
#include "platform/uikit/UIWindow.h"

#include <QVariantMap>
#include <utility>

namespace reelsmith {

namespace {

// Our own drawing of an image of the platform.
QString drawing(const QString& systemImage) {
    return systemImage == QLatin1String("square.and.arrow.up") ? QStringLiteral("share") : systemImage;
}

} // namespace

void UIContextMenuController::show(UIContextMenuConfiguration configuration, ReusableCell& cell,
                                   const QRectF& cellFrame) {
    UIWindow* window = UIApplication::shared().keyWindow();
    UIViewController* presenter = window == nullptr ? nullptr : window->frontmost();
    if (presenter == nullptr || configuration.actions.empty())
        return;
    UIImpactFeedbackGenerator(UIImpactFeedbackGenerator::Style::Medium).impactOccurred();
    presenter->present(std::make_unique<UIContextMenuController>(std::move(configuration), cell, cellFrame),
                       Animated::Yes);
}

UIContextMenuController::UIContextMenuController(UIContextMenuConfiguration configuration, ReusableCell& cell,
                                                 const QRectF& cellFrame)
    : m_configuration(std::move(configuration)), m_cell(&cell), m_cellFrame(cellFrame) {
    setTitle(m_configuration.title);
    setModalPresentationStyle(UIModalPresentationStyle::OverCurrentContext);
    setModalTransitionStyle(UIModalTransitionStyle::CrossDissolve);
}

QVariantList UIContextMenuController::actions() const {
    QVariantList list;
    for (const UIAction& action : m_configuration.actions) {
        list.append(QVariantMap{
            {QStringLiteral("title"), action.title},
            {QStringLiteral("image"), drawing(action.systemImage)},
            {QStringLiteral("isDestructive"), action.style == UIAction::Style::Destructive},
        });
    }
    return list;
}

ReusableCell* UIContextMenuController::cell() const {
    return m_cell;
}

void UIContextMenuController::press(int index) {
    if (isBeingDismissed() || index < 0 || std::cmp_greater_equal(index, m_configuration.actions.size()))
        return;
    dismiss(Animated::Yes, m_configuration.actions[static_cast<std::size_t>(index)].handler);
}

} // namespace reelsmith
