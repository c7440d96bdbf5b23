// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/Label.h"
#include "platform/uikit/UIViewController.h"

namespace reelsmith {

/// Whose work this application is made of, and on which terms. Main thread.
class LicencesViewController : public reelsmith::UIViewController {
    Q_OBJECT
    Q_PROPERTY(reelsmith::Label* partsLabel READ partsLabel CONSTANT)
    Q_PROPERTY(reelsmith::Label* licenceLabel READ licenceLabel CONSTANT)

public:
    Label* partsLabel() { return &m_partsLabel; }     ///< a line for each part and its terms
    Label* licenceLabel() { return &m_licenceLabel; } ///< the terms of the application itself, whole

protected:
    void viewDidLoad() override;

private:
    Label m_partsLabel;
    Label m_licenceLabel;
};

} // namespace reelsmith
