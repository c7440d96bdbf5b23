// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/TransitionDriver.h"

#include "platform/foundation/DispatchQueue.h"

namespace reelsmith {

void TransitionDriver::run(const Transition& /*transition*/, std::function<void()> done) {
    DispatchQueue::main().async(std::move(done));
}

} // namespace reelsmith
