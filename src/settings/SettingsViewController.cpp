// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingsViewController.h"

#include "platform/foundation/FatalError.h"
#include "platform/foundation/URLs.h"
#include "platform/screens/MFMailComposeViewController.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UINavigationController.h"
#include "remote/AnalyticsEvents.h"
#include "remote/ReelsmithAnalytics.h"
#include "settings/Endpoints.h"
#include "settings/LicencesViewController.h"
#include "settings/UserSettings.h"

#include <QPointer>
#include <utility>

namespace reelsmith {

namespace {

constexpr IndexPath developerRow{0, 2};
constexpr IndexPath problemRow{1, 0};

} // namespace

void SettingsViewController::viewDidLoad() {
    setTableFooterView(std::make_unique<View>());
    setTitle(QStringLiteral("Settings"));
    m_versionLabel.setText(QStringLiteral("Version " REELSMITH_VERSION));
}

void SettingsViewController::viewWillAppear() {
    if (UINavigationController* stack = navigationController())
        stack->setNavigationBarHidden(false, Animated::Yes);
    m_usageSwitch.setOn(UserSettings::shared().sendUsageData());
}

void SettingsViewController::appUsageSwitchChanged() {
    UserSettings::shared().setSendUsageData(m_usageSwitch.isOn());
}

void SettingsViewController::seeMoreTapped() {
    if (const auto url = urlFromString(Endpoints::productWebSite))
        UIApplication::shared().open(*url);
}

void SettingsViewController::licencesTapped() {
    if (UINavigationController* stack = navigationController(); stack != nullptr && stack->isAtRoot())
        stack->pushViewController(std::make_unique<LicencesViewController>(), Animated::Yes);
}

void SettingsViewController::tableViewDidSelectRowAt(const IndexPath& path) {
    deselectRow(path, Animated::Yes);
    if (path == developerRow)
        openDeveloperPage();
    else if (path == problemRow)
        reportProblem();
}

void SettingsViewController::openDeveloperPage() {
    ReelsmithAnalytics::logEvent(AnalyticsEvents::developerTapped);
    if (const auto url = urlFromString(Endpoints::developerPage))
        UIApplication::shared().open(*url);
}

void SettingsViewController::reportProblem() {
    if (!MFMailComposeViewController::canSendMail()) {
        const auto url = urlFromString(Endpoints::makerWebSite);
        if (!url)
            fatalError("The maker's web site is no address", "settings/SettingsViewController", __LINE__);
        UIApplication::shared().open(*url);
        return;
    }
    auto composer = std::make_unique<MFMailComposeViewController>();
    composer->setSubject(QStringLiteral("Reelsmith Problem"));
    composer->setToRecipients(Endpoints::supportRecipients);
    composer->setMailComposeDelegate(this);
    present(std::move(composer), Animated::Yes);
}

void SettingsViewController::mailComposeControllerDidFinishWith(MFMailComposeViewController& controller,
                                                                MFMailComposeResult result,
                                                                const std::optional<Error>& /*error*/) {
    controller.dismiss(Animated::Yes, [self = QPointer(this), result] {
        if (self)
            self->presentMailResult(result);
    });
}

void SettingsViewController::presentMailResult(MFMailComposeResult result) {
    QString title;
    QString message;
    if (result == MFMailComposeResult::Sent) {
        title = QStringLiteral("Message Sent");
        message = QStringLiteral("We will review it and respond shortly");
    } else if (result == MFMailComposeResult::Failed) {
        title = QStringLiteral("Error");
        message = QStringLiteral("Failed to send email");
    } else {
        return;
    }
    present(UIAlertController::notice(title, message, QStringLiteral("OK")), Animated::Yes);
}

} // namespace reelsmith
