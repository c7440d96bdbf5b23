// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/VideoTableViewCell.h"

#include "library/VideoPlayer.h"

namespace reelsmith {

void VideoTableViewCell::playTapped() {
    if (VideoCellDelegate* delegate = m_delegate.get())
        VideoPlayer::play(delegate->video().url(), delegate->presentingScreen());
}

} // namespace reelsmith
