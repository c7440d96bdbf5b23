// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/UINavigationController.h"

namespace reelsmith {

/// The stack of screens in each tab.
class MainNavigationController : public reelsmith::UINavigationController {
    Q_OBJECT

public:
    using UINavigationController::UINavigationController;

protected:
    void viewDidLoad() override;
};

} // namespace reelsmith
