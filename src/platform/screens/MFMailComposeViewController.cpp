// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/MFMailComposeViewController.h"

#include "platform/screens/PlatformServices.h"

#include <QPointer>
#include <utility>

namespace reelsmith {

namespace {

MailDrafts& drafts() {
    return *PlatformServices::shared().mailDrafts;
}

MFMailComposeResult resultOf(MailDrafts::Outcome outcome) {
    switch (outcome) {
    case MailDrafts::Outcome::Saved:
        return MFMailComposeResult::Saved;
    case MailDrafts::Outcome::Cancelled:
        return MFMailComposeResult::Cancelled;
    case MailDrafts::Outcome::Failed:
        break;
    }
    return MFMailComposeResult::Failed;
}

} // namespace

MFMailComposeViewController::MFMailComposeViewController() {
    setModalPresentationStyle(UIModalPresentationStyle::OverCurrentContext);
    setModalTransitionStyle(UIModalTransitionStyle::CrossDissolve);
}

MFMailComposeViewController::~MFMailComposeViewController() {
    if (m_isComposing)
        drafts().cancel();
}

bool MFMailComposeViewController::canSendMail() {
    return drafts().canSendMail();
}

void MFMailComposeViewController::viewDidAppear() {
    if (std::exchange(m_hasBegun, true))
        return;
    m_isComposing = true;
    drafts().compose(m_draft, [self = QPointer(this)](MailDrafts::Outcome outcome) {
        if (self)
            self->finish(outcome);
    });
}

void MFMailComposeViewController::finish(MailDrafts::Outcome outcome) {
    m_isComposing = false;
    if (isBeingDismissed())
        return;
    if (MFMailComposeViewControllerDelegate* delegate = m_delegate.get())
        delegate->mailComposeControllerDidFinishWith(*this, resultOf(outcome), std::nullopt);
    else
        dismiss(Animated::Yes);
}

bool MFMailComposeViewController::goBack() {
    if (m_isComposing)
        drafts().cancel();
    return true;
}

} // namespace reelsmith
