// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/DispatchQueue.h"
#include "platform/screens/FileSharing.h"
#include "platform/uikit/DesktopAppearance.h"

namespace reelsmith {

/// A desktop with a service for everything, which does nothing.
class DemoFileSharing : public FileSharing {
public:
    QList<Action> availableActions() const override {
        return {Action::OpenWith, Action::SendByMail, Action::SaveCopy, Action::ShowInFolder,
                Action::CopyFile};
    }
    void perform(Action /*action*/, const QUrl& /*file*/, Completion completion) override {
        DispatchQueue::main().async([completion] { completion(Outcome::Done, {}); });
    }
};

/// A user whose wishes are known beforehand.
class DemoAppearance : public DesktopAppearance {
public:
    explicit DemoAppearance(const Settings& wishes) { m_settings = wishes; }
};

} // namespace reelsmith
