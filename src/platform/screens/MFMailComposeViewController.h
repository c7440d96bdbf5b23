// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/WeakDelegate.h"
#include "platform/screens/MFMailComposeViewControllerDelegate.h"
#include "platform/screens/MailDrafts.h"
#include "platform/uikit/UIViewController.h"

namespace reelsmith {

/// Has the user write a mail in the mail program, over which this screen only dims the window. Its delegate
/// dismisses it; without one it goes by itself. Main thread.
class MFMailComposeViewController : public reelsmith::UIViewController {
    Q_OBJECT

public:
    MFMailComposeViewController();
    ~MFMailComposeViewController() override;

    /// Whether there is a mail program.
    static bool canSendMail();

    /// What the mail begins with; to be set before the composer is presented.
    void setSubject(const QString& subject) { m_draft.subject = subject; }
    void setToRecipients(const QStringList& recipients) { m_draft.recipients = recipients; }
    const MailDrafts::Draft& draft() const { return m_draft; }

    void setMailComposeDelegate(const WeakDelegate<MFMailComposeViewControllerDelegate>& delegate) {
        m_delegate = delegate;
    }

    /// Ends the wait for the mail program: the mail is cancelled.
    Q_INVOKABLE bool goBack() override;

protected:
    void viewDidAppear() override;

private:
    void finish(MailDrafts::Outcome outcome);

    MailDrafts::Draft m_draft;
    WeakDelegate<MFMailComposeViewControllerDelegate> m_delegate;
    bool m_isComposing = false;
    bool m_hasBegun = false;
};

} // namespace reelsmith
