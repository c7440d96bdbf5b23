// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/ThumbnailQueue.h"

#include "platform/foundation/DispatchQueue.h"

#include <utility>

namespace reelsmith {

namespace {

// Two pictures in the making, and a third file whose duration is being asked for.
constexpr int atOnce = 3;

} // namespace

ThumbnailQueue& ThumbnailQueue::shared() {
    static ThumbnailQueue queue;
    return queue;
}

void ThumbnailQueue::add(Work work, std::stop_token unwanted) {
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_waiting, [](const Piece& piece) { return piece.unwanted.stop_requested(); });
    m_waiting.push_back({std::move(work), std::move(unwanted)});
    if (m_busyCount == atOnce)
        return;
    ++m_busyCount;
    DispatchQueue::global(QualityOfService::UserInitiated).async([this] { workOff(); });
}

void ThumbnailQueue::workOff() {
    while (const Work work = takeNewest())
        work();
}

ThumbnailQueue::Work ThumbnailQueue::takeNewest() {
    const std::lock_guard lock(m_mutex);
    while (!m_waiting.empty()) {
        Piece newest = std::move(m_waiting.back());
        m_waiting.pop_back();
        if (!newest.unwanted.stop_requested())
            return std::move(newest.work);
    }
    --m_busyCount;
    return {};
}

} // namespace reelsmith
