// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

namespace reelsmith {

/// What one page of the onboarding tells.
struct OnboardingPage {
    QString title;
    QString message;
    QString buttonTitle;
    QUrl videoURL;
};

} // namespace reelsmith
