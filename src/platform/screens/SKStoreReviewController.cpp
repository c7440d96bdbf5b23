// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/SKStoreReviewController.h"

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/screens/PlatformServices.h"
#include "platform/screens/StoreReviewQuota.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIWindow.h"

#include <QPointer>

namespace reelsmith {

namespace {

StoreReviewQuota quota() {
    return {UserDefaults::standard(), QStringLiteral(REELSMITH_VERSION)};
}

// Whether a request waits for its turn in a window, and for what.
QMetaObject::Connection waiting;

} // namespace

void SKStoreReviewController::requestReview() {
    UIWindow* window = UIApplication::shared().keyWindow();
    if (window == nullptr || waiting || !PlatformServices::shared().storePage->isAvailable() ||
        !quota().allowsPrompt(QDateTime::currentDateTimeUtc()))
        return;
    // Also when a change of screens has just ended, whose completion may present the next one.
    const auto lookLater = [window] {
        DispatchQueue::main().async([shown = QPointer(window)] { showWhenFree(shown); });
    };
    waiting = QObject::connect(&window->presentations(), &PresentationList::changed, lookLater);
    lookLater();
}

void SKStoreReviewController::showWhenFree(UIWindow* window) {
    if (window == nullptr || !waiting || !isFree(*window))
        return;
    QObject::disconnect(waiting);
    waiting = {};
    show(*window);
}

bool SKStoreReviewController::isFree(UIWindow& window) {
    const PresentationList& presented = window.presentations();
    return window.rootViewController() != nullptr && presented.isIdle() && presented.screens().empty();
}

void SKStoreReviewController::show(UIWindow& window) {
    quota().countPrompt(QDateTime::currentDateTimeUtc());
    auto prompt = std::make_unique<UIAlertController>(
        QStringLiteral("Do you like Reelsmith?"),
        QStringLiteral("A rating in the software store helps others to find it."),
        UIAlertController::Style::Alert);
    prompt->addAction(QStringLiteral("not now"), UIAlertController::ActionStyle::Cancel);
    prompt->addAction(QStringLiteral("rate"), UIAlertController::ActionStyle::Default,
                      [] { PlatformServices::shared().storePage->open([](bool) {}); });
    window.rootViewController()->present(std::move(prompt), Animated::Yes);
}

} // namespace reelsmith
