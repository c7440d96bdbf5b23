// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/CMTime.h"

#include <QSizeF>
#include <QUrl>
#include <memory>
#include <optional>
#include <vector>

namespace reelsmith {

enum class AVMediaType { Video };

/// How a track's picture is turned for showing: (x, y) becomes (a x + c y, b x + d y).
struct CGAffineTransform {
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 1;

    /// A dimension comes out negative where the transform mirrors it.
    QSizeF applied(const QSizeF& size) const;
    bool operator==(const CGAffineTransform&) const = default;
};

struct AVAssetTrack {
    QSizeF naturalSize; ///< in pixels
    CGAffineTransform preferredTransform;
};

/// A file as media. Nothing is read until a property is asked for; then all are found out at once, by the
/// media service, and kept. Properties wait for that at most 2 s from the first question; what is not known
/// by then, or cannot be read, counts as not playable, of no duration and without tracks. Copies share what
/// is known. Any thread.
class AVAsset {
public:
    explicit AVAsset(const QUrl& url);

    const QUrl& url() const;
    bool isPlayable() const;
    bool isExportable() const;
    CMTime duration() const;

    /// The tracks of a kind, the first one only.
    std::vector<AVAssetTrack> tracks(AVMediaType type) const;

    /// How many bytes an export with a preset would come to; nothing where unknown.
    std::optional<qint64> estimatedOutputFileLength(const QString& presetName) const;

private:
    class Properties;
    std::shared_ptr<Properties> m_properties;
};

} // namespace reelsmith
