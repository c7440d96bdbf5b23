// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/CMTime.h"

#include <QUrl>

class QObject;

namespace reelsmith {

/// What plays a video for an AVPlayer. Main thread. This one plays nothing.
class VideoPlayback {
public:
    virtual ~VideoPlayback() = default;

    /// Takes the place of the video that there was. What cannot be played shows nothing.
    virtual void setSource(const QUrl& /*url*/) {}
    virtual void seek(const CMTime& /*time*/) {}

    /// Plays once, up to the end, where the last picture stays.
    virtual void play() {}

    /// What hands out the pictures: an object that the playback and what shows it agree on. Its own; null for
    /// no pictures.
    virtual QObject* output() { return nullptr; }
};

} // namespace reelsmith
