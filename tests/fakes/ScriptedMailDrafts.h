// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/DispatchQueue.h"
#include "platform/screens/MailDrafts.h"

#include <utility>

namespace reelsmith {

/// A mail program in which the test is the user.
class ScriptedMailDrafts : public MailDrafts {
public:
    bool isThere = true;
    Draft draft; ///< the last one begun

    bool isComposing() const { return m_completion != nullptr; }

    /// The user is done with the draft.
    void end(Outcome outcome) {
        DispatchQueue::main().async(
            [completion = std::exchange(m_completion, {}), outcome] { completion(outcome); });
    }

    bool canSendMail() const override { return isThere; }
    void compose(const Draft& begun, Completion completion) override {
        draft = begun;
        m_completion = std::move(completion);
    }
    void cancel() override {
        if (isComposing())
            end(Outcome::Cancelled);
    }

private:
    Completion m_completion;
};

} // namespace reelsmith
