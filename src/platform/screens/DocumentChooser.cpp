// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/DocumentChooser.h"

#include "platform/foundation/DispatchQueue.h"

namespace reelsmith {

void DocumentChooser::choose(const QString&, const QList<Kind>&, Completion completion) {
    DispatchQueue::main().async(
        [completion = std::move(completion)] { completion(Answer::Unavailable, {}); });
}

} // namespace reelsmith
