// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

/// Goes on after the onboarding.
class OnboardingDelegate {
public:
    virtual ~OnboardingDelegate() = default;

    /// The user has seen it all: the main screen is to take the onboarding's place, without animation.
    virtual void onboardingDidFinish() = 0;
};

} // namespace reelsmith
