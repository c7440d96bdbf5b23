// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/StorePage.h"

#include "platform/foundation/DispatchQueue.h"

namespace reelsmith {

void StorePage::open(Completion completion) {
    DispatchQueue::main().async([completion = std::move(completion)] { completion(false); });
}

} // namespace reelsmith
