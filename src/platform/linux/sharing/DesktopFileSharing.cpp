// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/sharing/DesktopFileSharing.h"

#include "platform/linux/sharing/CopyFileAction.h"
#include "platform/linux/sharing/OpenWithAction.h"
#include "platform/linux/sharing/SaveCopyAction.h"
#include "platform/linux/sharing/SendByMailAction.h"
#include "platform/linux/sharing/ShowInFolderAction.h"

#include <utility>

namespace reelsmith {

DesktopFileSharing::DesktopFileSharing(const QDBusConnection& sessionBus) {
    m_actions.emplace(Action::OpenWith, std::make_unique<OpenWithAction>(sessionBus));
    m_actions.emplace(Action::SendByMail, std::make_unique<SendByMailAction>(sessionBus));
    m_actions.emplace(Action::SaveCopy, std::make_unique<SaveCopyAction>(sessionBus));
    m_actions.emplace(Action::ShowInFolder, std::make_unique<ShowInFolderAction>(sessionBus));
    m_actions.emplace(Action::CopyFile, std::make_unique<CopyFileAction>());
    for (const auto& [name, action] : m_actions) {
        action->findOut([this, available = name](bool isThere) {
            if (isThere)
                m_available.insert(available);
        });
    }
}

DesktopFileSharing::~DesktopFileSharing() = default;

QList<FileSharing::Action> DesktopFileSharing::availableActions() const {
    return {m_available.begin(), m_available.end()};
}

void DesktopFileSharing::perform(Action action, const QUrl& file, Completion completion) {
    cancel();
    m_actions.at(action)->perform(file, std::move(completion));
}

void DesktopFileSharing::cancel() {
    for (const auto& [name, action] : m_actions)
        action->cancel();
}

} // namespace reelsmith
