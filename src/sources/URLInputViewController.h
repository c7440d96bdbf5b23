// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/WeakDelegate.h"
#include "platform/uikit/ModalScreenDelegate.h"
#include "platform/uikit/TextField.h"
#include "platform/uikit/UIViewController.h"

#include <QUrl>
#include <optional>

namespace reelsmith {

/// Takes the address that the user has entered.
class URLInputViewControllerDelegate : public ModalScreenDelegate {
public:
    virtual void urlEntered(const QUrl& url) = 0;
};

/// The card that asks for the web address of a video. Main thread.
class URLInputViewController : public reelsmith::UIViewController {
    Q_OBJECT
    Q_PROPERTY(reelsmith::TextField* textField READ textField CONSTANT)

public:
    URLInputViewController();
    explicit URLInputViewController(const NSCoder& coder) : UIViewController(coder) {}

    TextField* textField() { return &m_textField; }
    void setDelegate(const WeakDelegate<URLInputViewControllerDelegate>& delegate) { m_delegate = delegate; }

    /// Hands the address over and leaves; an alert, and the card stays, if it cannot be a video's.
    Q_INVOKABLE void downloadTapped();
    Q_INVOKABLE void cancelTapped();
    /// Leaves without a word to anyone.
    Q_INVOKABLE void requestDismiss();

private:
    std::optional<QUrl> enteredURL() const;
    void presentInvalidURLAlert();

    TextField m_textField;
    WeakDelegate<URLInputViewControllerDelegate> m_delegate;
};

} // namespace reelsmith
