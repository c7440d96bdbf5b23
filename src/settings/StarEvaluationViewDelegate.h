// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace reelsmith {

/// Hears of ratings.
class StarEvaluationViewDelegate {
public:
    virtual ~StarEvaluationViewDelegate() = default;

    /// `rating`: 1 for the first star. Told once for each star that there is.
    virtual void starsChanged(qint64 rating) = 0;
};

} // namespace reelsmith
