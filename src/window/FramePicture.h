// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

class QVideoFrame;

namespace reelsmith {

/// The picture of a video's frame, upright and in the colours that its colour space means; null for no
/// picture. Any thread.
QImage framePicture(const QVideoFrame& frame);

} // namespace reelsmith
