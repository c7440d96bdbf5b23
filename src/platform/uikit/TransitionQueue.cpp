// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/TransitionQueue.h"

#include <QPointer>
#include <utility>

namespace reelsmith {

void TransitionQueue::add(Change change) {
    m_changes.push_back(std::move(change));
    if (!m_isRunning)
        runNext();
}

void TransitionQueue::runNext() {
    if (m_changes.empty())
        return;
    const Change change = std::move(m_changes.front());
    m_changes.pop_front();
    m_isRunning = true;
    change([self = QPointer(this)] {
        if (!self)
            return;
        self->m_isRunning = false;
        self->runNext();
    });
}

} // namespace reelsmith
