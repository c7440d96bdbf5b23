// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/UIImage.h"

#include <QString>
#include <QUrl>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>

namespace reelsmith {

/// One converted file in the library. All but its URL is found out each time it is asked for.
class ConvertedVideo {
public:
    explicit ConvertedVideo(QUrl url) : m_url(std::move(url)) {}

    /// The file at an absolute path, in the file system's bytes: cheap to hold by thousands.
    explicit ConvertedVideo(std::string path) : m_path(std::move(path)) {}

    /// Made at each call from a path.
    QUrl url() const;

    /// The file's name with its ending; a new UUID at each call where the URL has no path.
    QString name() const;

    /// Hands over a picture from near the start, at most 500 by 500 pixels; an empty one where the file has
    /// none. Made in the background unless kept from an earlier call, the last one asked for first;
    /// `completion` is called once, on the main queue, but never if `unwanted` is requested before the
    /// picture's turn.
    void thumbnail(std::function<void(const UIImage&)> completion, std::stop_token unwanted = {}) const;

    /// Hours, minutes and seconds, cut to whole ones: "01:02:05". Waits for the file to be read.
    QString durationText() const;

    /// Width and height as shown, grouped as the system writes numbers: "1,920x1,080". Nothing without a
    /// video track. Waits for the file to be read.
    std::optional<QString> resolutionText() const;

    bool operator==(const ConvertedVideo& other) const { return url() == other.url(); }

private:
    QUrl m_url;
    std::string m_path;
};

} // namespace reelsmith
