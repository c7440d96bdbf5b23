// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/bus/PortalRequest.h"
#include "platform/screens/FileSharing.h"

#include <QUrl>
#include <functional>

namespace reelsmith {

/// One way to share a file. Main thread.
class SharingAction {
public:
    using Completion = FileSharing::Completion;
    using Outcome = FileSharing::Outcome;

    virtual ~SharingAction() = default;

    /// Finds out whether the desktop has what this needs. The answer comes at once or later, unless this
    /// object is gone by then.
    virtual void findOut(std::function<void(bool isThere)> answer) = 0;

    /// See FileSharing.
    virtual void perform(const QUrl& file, Completion completion) = 0;
    virtual void cancel() {}

protected:
    /// Completes later, on the main queue.
    static void complete(Completion completion, Outcome outcome, const QString& error = {});

    /// Completes with what the portal has answered.
    static PortalRequest::Completion completing(Completion completion);
};

} // namespace reelsmith
