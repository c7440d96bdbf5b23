// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/VideoDeletion.h"

#include "platform/uikit/UIAlertController.h"

#include <utility>

namespace reelsmith {

std::unique_ptr<UIAlertController> videoDeletionAlert(std::function<void()> confirmed) {
    auto alert = std::make_unique<UIAlertController>(
        QStringLiteral("Delete Video"), QStringLiteral("Are you sure you want to delete this video?"),
        UIAlertController::Style::Alert);
    alert->addAction(QStringLiteral("delete"), UIAlertController::ActionStyle::Destructive,
                     std::move(confirmed));
    alert->addAction(QStringLiteral("cancel"), UIAlertController::ActionStyle::Cancel);
    return alert;
}

} // namespace reelsmith
