// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/UIImage.h"

#include <QString>
#include <QUrl>
#include <functional>
#include <stop_token>

namespace reelsmith {

/// Finds out in the background what a tile shows of a video. Main thread.
class VideoPreview {
public:
    struct Facts {
        UIImage picture;    ///< empty where there is none to be had
        double seconds = 0; ///< how long it lasts; 0 where unknown
    };
    using Completion = std::function<void(const Facts& facts)>;

    /// Starts at once. `completion` is called on the main queue, unless this object is gone by then: then no
    /// work is done that has not begun.
    VideoPreview(const QUrl& url, Completion completion);
    ~VideoPreview() { m_stop.request_stop(); }
    VideoPreview(const VideoPreview&) = delete;
    VideoPreview& operator=(const VideoPreview&) = delete;

    /// Minutes and seconds, and hours where there are any: "3:12", "1:02:05"; empty where `seconds` is 0.
    /// `minuteDigits`: how many there are at least.
    static QString durationText(double seconds, int minuteDigits = 1);

private:
    std::stop_source m_stop;
};

} // namespace reelsmith
