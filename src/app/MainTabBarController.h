// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/UITabBarController.h"

namespace reelsmith {

/// The application's tab bar.
class MainTabBarController : public reelsmith::UITabBarController {
    Q_OBJECT
};

} // namespace reelsmith
