// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <functional>

namespace reelsmith {

/// What the desktop can do with a file beyond this application. Main thread. This one can do nothing.
class FileSharing {
public:
    /// In the order in which they are offered.
    enum class Action { OpenWith, SendByMail, SaveCopy, ShowInFolder, CopyFile };
    enum class Outcome { Done, Cancelled, Failed };

    /// `error` says in words for the user why it failed; empty otherwise.
    using Completion = std::function<void(Outcome outcome, const QString& error)>;

    virtual ~FileSharing() = default;

    /// What there is a service for, in order. Empty at first: the services are asked at the start.
    virtual QList<Action> availableActions() const { return {}; }

    /// Calls `completion` once, on the main queue, after this has returned: when the user is through with the
    /// dialog that the action shows, if it shows one. One action at a time: a second one cancels the first.
    virtual void perform(Action action, const QUrl& file, Completion completion);

    /// Ends the action that is under way, if any, dialog and all: it completes as cancelled.
    virtual void cancel() {}
};

} // namespace reelsmith
