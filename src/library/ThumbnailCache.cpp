// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/ThumbnailCache.h"

#include "platform/foundation/FileManager.h"

namespace reelsmith {

namespace {

qint64 sizeBytes(const UIImage& image) {
    return image.cgImage().pixels.size();
}

} // namespace

ThumbnailCache& ThumbnailCache::shared() {
    static ThumbnailCache cache(sharedLimitBytes);
    static const bool isObserving =
        (FileManager::defaultManager().addChangeObserver([](const QUrl& url) { cache.forget(url); }), true);
    Q_UNUSED(isObserving)
    return cache;
}

std::optional<UIImage> ThumbnailCache::image(const QUrl& url) {
    const std::lock_guard lock(m_mutex);
    const auto found = m_index.find(url);
    if (found == m_index.end())
        return std::nullopt;
    m_entries.splice(m_entries.begin(), m_entries, found->second);
    return found->second->second;
}

ThumbnailCache::Moment ThumbnailCache::now() const {
    const std::lock_guard lock(m_mutex);
    return m_now;
}

void ThumbnailCache::insert(const QUrl& url, const UIImage& image, Moment begin) {
    const std::lock_guard lock(m_mutex);
    if (begin != m_now)
        return;
    if (const auto old = m_index.find(url); old != m_index.end())
        remove(old);
    m_entries.emplace_front(url, image);
    m_index.emplace(url, m_entries.begin());
    m_sizeBytes += sizeBytes(image);
    while (m_sizeBytes > m_limitBytes)
        remove(m_index.find(m_entries.back().first));
}

void ThumbnailCache::forget(const QUrl& url) {
    const std::lock_guard lock(m_mutex);
    ++m_now;
    for (auto entry = m_index.begin(); entry != m_index.end();) {
        const auto next = std::next(entry);
        if (entry->first == url || url.isParentOf(entry->first))
            remove(entry);
        entry = next;
    }
}

void ThumbnailCache::remove(std::map<QUrl, Entries::iterator>::iterator position) {
    m_sizeBytes -= sizeBytes(position->second->second);
    m_entries.erase(position->second);
    m_index.erase(position);
}

} // namespace reelsmith
