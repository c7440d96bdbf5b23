// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/UIImage.h"

#include <QString>
#include <QUrl>
#include <array>
#include <functional>
#include <optional>

namespace reelsmith {

/// What is worth knowing of a video before it is converted.
struct SourceDetails {
    QString durationText;                                ///< "03:12", "1:02:05"; empty when unknown
    QString resolutionText;                              ///< "3,840x2,160"; empty when unknown
    std::optional<qint64> sizeBytes;                     ///< of the file
    std::array<std::optional<qint64>, 3> estimatedBytes; ///< of the result, at each quality
    std::optional<qint64> freeBytes;                     ///< where the result will stand

    /// "03:12 · 3,840x2,160 · 1.24 GB", without what is unknown.
    QString summary() const;

    /// Reads the file on a background queue; `completion` runs once, on the main queue.
    static void load(const QUrl& file, std::function<void(const SourceDetails&)> completion);

    /// The same, at once. Any thread.
    static SourceDetails of(const QUrl& file);

    /// "37.6 MB": as a person would say it, in units of 1000; it stays in one line.
    static QString sizeText(qint64 bytes);
};

} // namespace reelsmith
