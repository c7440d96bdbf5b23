// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"

#include <functional>
#include <mutex>
#include <optional>
#include <vector>

namespace reelsmith::media {

/// Keeps the first failure of an export, whichever of its threads meets it, and wakes all the others. Any
/// thread.
class FailureLatch {
public:
    /// `wake` is called at the first failure, at once when there has been one. It must not call back.
    void onFailure(std::function<void()> wake);

    /// The first call counts.
    void fail(Error error);

    bool hasFailed() const;
    std::optional<Error> error() const;

private:
    mutable std::mutex m_mutex;
    std::optional<Error> m_error;
    std::vector<std::function<void()>> m_wakes;
};

} // namespace reelsmith::media
