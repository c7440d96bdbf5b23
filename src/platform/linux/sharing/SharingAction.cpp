// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/sharing/SharingAction.h"

#include "platform/foundation/DispatchQueue.h"

#include <utility>

namespace reelsmith {

void SharingAction::complete(Completion completion, Outcome outcome, const QString& error) {
    DispatchQueue::main().async(
        [completion = std::move(completion), outcome, error] { completion(outcome, error); });
}

PortalRequest::Completion SharingAction::completing(Completion completion) {
    return [completion = std::move(completion)](const PortalRequest::Answer& answer) {
        switch (answer.outcome) {
        case PortalRequest::Outcome::Granted:
            completion(Outcome::Done, {});
            break;
        case PortalRequest::Outcome::Cancelled:
            completion(Outcome::Cancelled, {});
            break;
        case PortalRequest::Outcome::Failed:
            completion(Outcome::Failed, answer.error);
        }
    };
}

} // namespace reelsmith
