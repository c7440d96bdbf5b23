// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace reelsmith {

/// Mails begun in the user's own mail program, to be finished and sent there. Main thread. This one knows of
/// no such program.
class MailDrafts {
public:
    struct Draft {
        QStringList recipients;
        QString subject;
        QString body;
    };
    /// Whether a draft is ever sent, nobody tells.
    enum class Outcome { Saved, Cancelled, Failed };
    using Completion = std::function<void(Outcome outcome)>;

    virtual ~MailDrafts() = default;

    /// Whether there is a mail program.
    virtual bool canSendMail() const { return false; }

    /// Calls `completion` once, on the main queue, after this has returned. One draft at a time: a second one
    /// cancels the first.
    virtual void compose(const Draft& draft, Completion completion);

    /// Ends the wait for the mail program, if there is one: it completes as cancelled.
    virtual void cancel() {}
};

} // namespace reelsmith
