// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

namespace reelsmith {

class UIAlertController;

/// The question whether a video is to be deleted; `confirmed` runs after a yes, when the alert has gone.
std::unique_ptr<UIAlertController> videoDeletionAlert(std::function<void()> confirmed);

} // namespace reelsmith
