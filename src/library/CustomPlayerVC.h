// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/screens/AVPlayerViewController.h"

namespace reelsmith {

/// The player as this application shows it: once it goes, everything stands upright again. Main thread.
class CustomPlayerVC : public reelsmith::AVPlayerViewController {
    Q_OBJECT

protected:
    void viewWillDisappear() override;
};

} // namespace reelsmith
