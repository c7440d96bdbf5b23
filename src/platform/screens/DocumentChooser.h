// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QStringList>
#include <QUrl>
#include <functional>

namespace reelsmith {

/// The desktop's own dialog for choosing a file. Main thread. This one is not available.
class DocumentChooser {
public:
    /// A kind of file that may be chosen, as the dialog calls it: what fits a pattern or is of a MIME type.
    struct Kind {
        QString name;
        QStringList patterns; ///< such as "*.mkv"
        QStringList mimeTypes;
    };
    enum class Answer {
        Picked,
        Cancelled,
        Unavailable, ///< no dialog could be shown; the caller shows a list of its own
    };
    using Completion = std::function<void(Answer answer, const QUrl& file)>;

    virtual ~DocumentChooser() = default;

    /// Whether there is such a dialog, as far as is known now.
    virtual bool isAvailable() const { return false; }

    /// Asks for one file. Calls `completion` once, on the main queue, after this has returned; `file` is
    /// empty unless one was picked. One dialog at a time: a second one cancels the first.
    virtual void choose(const QString& title, const QList<Kind>& kinds, Completion completion);

    /// Takes the dialog away, if one is shown: it completes as cancelled.
    virtual void cancel() {}
};

} // namespace reelsmith
