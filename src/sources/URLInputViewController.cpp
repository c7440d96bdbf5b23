// SPDX-License-Identifier: GPL-3.0-or-later
#include "sources/URLInputViewController.h"

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/URLs.h"
#include "platform/uikit/UIAlertController.h"
#include "sources/AcceptedVideoExtensions.h"

#include <algorithm>

namespace reelsmith {

URLInputViewController::URLInputViewController() {
    setModalTransitionStyle(UIModalTransitionStyle::CrossDissolve);
    setModalPresentationStyle(UIModalPresentationStyle::OverCurrentContext);
}

// The case of the ending counts here, and it may stand anywhere in the text.
std::optional<QUrl> URLInputViewController::enteredURL() const {
    const std::optional<QString>& text = m_textField.text();
    if (!text)
        return std::nullopt;
    const std::optional<QUrl> url = urlFromString(*text);
    const bool hasExtension = std::ranges::any_of(
        acceptedVideoExtensions, [&text](const QString& extension) { return text->contains(extension); });
    return hasExtension ? url : std::nullopt;
}

void URLInputViewController::downloadTapped() {
    const std::optional<QUrl> url = enteredURL();
    if (!url) {
        presentInvalidURLAlert();
        return;
    }
    DispatchQueue::main().async([self = QPointer(this), url = *url] {
        URLInputViewControllerDelegate* const delegate = self ? self->m_delegate.get() : nullptr;
        if (delegate == nullptr || self->isBeingDismissed())
            return;
        delegate->dismissPresentedScreen([weak = self->m_delegate, url] {
            if (URLInputViewControllerDelegate* taker = weak.get())
                taker->urlEntered(url);
        });
    });
}

void URLInputViewController::presentInvalidURLAlert() {
    present(UIAlertController::notice(
                QStringLiteral("Invalid URL"),
                QStringLiteral("The URL should be valid and link directly to a video asset")),
            Animated::Yes);
}

void URLInputViewController::cancelTapped() {
    URLInputViewControllerDelegate* const delegate = m_delegate.get();
    if (delegate != nullptr && !isBeingDismissed())
        delegate->dismissPresentedScreen({});
}

void URLInputViewController::requestDismiss() {
    dismiss(Animated::Yes);
}

} // namespace reelsmith
