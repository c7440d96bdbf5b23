// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/Error.h"

#include <optional>

namespace reelsmith {

class MFMailComposeViewController;

enum class MFMailComposeResult { Cancelled = 0, Saved = 1, Sent = 2, Failed = 3 };

/// Hears what became of a mail, and takes the composer away.
class MFMailComposeViewControllerDelegate {
public:
    virtual ~MFMailComposeViewControllerDelegate() = default;

    /// `error` only where the mail has failed, and the reason is known.
    virtual void mailComposeControllerDidFinishWith(MFMailComposeViewController& controller,
                                                    MFMailComposeResult result,
                                                    const std::optional<Error>& error) = 0;
};

} // namespace reelsmith
