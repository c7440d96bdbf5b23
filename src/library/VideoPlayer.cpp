// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/VideoPlayer.h"

#include "platform/uikit/UIApplication.h"

#include <QUrl>

namespace reelsmith {

void VideoPlayer::play(const QUrl& url, UIViewController& /*screen*/) {
    UIApplication::shared().open(url);
}

} // namespace reelsmith
