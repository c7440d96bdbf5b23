// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/MailDrafts.h"

#include "platform/foundation/DispatchQueue.h"

namespace reelsmith {

void MailDrafts::compose(const Draft&, Completion completion) {
    DispatchQueue::main().async([completion = std::move(completion)] { completion(Outcome::Failed); });
}

} // namespace reelsmith
