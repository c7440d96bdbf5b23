// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/CanShareFiles.h"

#include "platform/foundation/Console.h"
#include "platform/screens/UIActivityViewController.h"
#include "platform/uikit/UIScreen.h"
#include "remote/AnalyticsEvents.h"
#include "remote/ReelsmithAnalytics.h"

#include <QRectF>
#include <optional>

namespace reelsmith {

namespace {

// On a tablet the sheet points to the middle of the screen.
std::optional<QRectF> popoverRectangle() {
    const UIScreen& screen = UIScreen::main();
    if (!screen.isTabletClass())
        return std::nullopt;
    return QRectF(screen.size().width() / 2, screen.size().height() / 2, 0, 0);
}

} // namespace

void CanShareFiles::share(const QUrl& file) {
    share(file, CameraRoll::Excluded);
}

// The camera roll is offered nowhere, so leave to write to it is never asked for.
void CanShareFiles::share(const QUrl& file, CameraRoll /*cameraRoll*/) {
    UIViewController& screen = sharingScreen();
    auto sheet = std::make_unique<UIActivityViewController>(QList<QUrl>{file});
    sheet->setPopoverSource(screen, popoverRectangle());
    sheet->setExcludedActivityTypes({UIActivityTypeAssignToContact});
    sheet->setCompletionWithItemsHandler([] { console(QStringLiteral("Shared")); });
    ReelsmithAnalytics::logEvent(AnalyticsEvents::sharedVideo);
    screen.present(std::move(sheet), Animated::Yes);
}

} // namespace reelsmith
