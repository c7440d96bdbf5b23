// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/FileSharing.h"

#include "platform/foundation/DispatchQueue.h"

namespace reelsmith {

void FileSharing::perform(Action, const QUrl&, Completion completion) {
    DispatchQueue::main().async([completion = std::move(completion)] {
        completion(Outcome::Failed, QStringLiteral("This system offers no service for it."));
    });
}

} // namespace reelsmith
