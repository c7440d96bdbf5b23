// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/sharing/SharingAction.h"

#include <QDBusConnection>
#include <map>
#include <memory>
#include <set>

namespace reelsmith {

/// Shares files by the desktop's services. Needs a QGuiApplication.
class DesktopFileSharing : public FileSharing {
public:
    explicit DesktopFileSharing(const QDBusConnection& sessionBus);
    ~DesktopFileSharing() override;

    QList<Action> availableActions() const override;
    void perform(Action action, const QUrl& file, Completion completion) override;
    void cancel() override;

private:
    std::set<Action> m_available;
    std::map<Action, std::unique_ptr<SharingAction>> m_actions;
};

} // namespace reelsmith
