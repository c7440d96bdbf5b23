// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/sharing/SharingAction.h"

namespace reelsmith {

/// Puts the file on the clipboard, for pasting into a folder. Needs a QGuiApplication.
class CopyFileAction : public SharingAction {
public:
    void findOut(std::function<void(bool isThere)> answer) override { answer(true); }
    void perform(const QUrl& file, Completion completion) override;
};

} // namespace reelsmith
