// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/screens/MFMailComposeViewControllerDelegate.h"
#include "platform/uikit/Label.h"
#include "platform/uikit/Switch.h"
#include "platform/uikit/UITableViewController.h"

namespace reelsmith {

/// The user's settings, ways to reach the maker, and what this application is. Main thread.
class SettingsViewController : public reelsmith::UITableViewController,
                               public MFMailComposeViewControllerDelegate {
    Q_OBJECT
    Q_PROPERTY(reelsmith::Switch* usageSwitch READ usageSwitch CONSTANT)
    Q_PROPERTY(reelsmith::Label* versionLabel READ versionLabel CONSTANT)

public:
    Switch* usageSwitch() { return &m_usageSwitch; }
    Label* versionLabel() { return &m_versionLabel; }

    /// Keeps what the switch shows.
    Q_INVOKABLE void appUsageSwitchChanged();
    Q_INVOKABLE void seeMoreTapped();
    Q_INVOKABLE void licencesTapped();

    void mailComposeControllerDidFinishWith(MFMailComposeViewController& controller,
                                            MFMailComposeResult result,
                                            const std::optional<Error>& error) override;

protected:
    void viewDidLoad() override;
    void viewWillAppear() override;
    void tableViewDidSelectRowAt(const IndexPath& path) override;

private:
    void openDeveloperPage();
    void reportProblem();
    void presentMailResult(MFMailComposeResult result);

    Switch m_usageSwitch;
    Label m_versionLabel;
};

} // namespace reelsmith
