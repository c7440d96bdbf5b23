// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/UIImage.h"

#include <QUrl>
#include <list>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

namespace reelsmith {

/// The thumbnails of this process. The least recently used ones go when all together take more than the
/// limit, and those whose file the file layer has removed or replaced. Any thread.
class ThumbnailCache {
public:
    /// A point in the history of the files; see insert().
    using Moment = quint64;

    static constexpr qint64 sharedLimitBytes = 64LL * 1024 * 1024;

    /// The one that hears from the file layer.
    static ThumbnailCache& shared();

    explicit ThumbnailCache(qint64 limitBytes) : m_limitBytes(limitBytes) {}

    std::optional<UIImage> image(const QUrl& url);

    Moment now() const;

    /// Keeps an image that was made from a file as it was at `begin`, unless files have changed since.
    void insert(const QUrl& url, const UIImage& image, Moment begin);

    /// Forgets the image of a file that has changed, or those of the files in a folder that has.
    void forget(const QUrl& url);

private:
    using Entry = std::pair<QUrl, UIImage>;
    // Most recently used first.
    using Entries = std::list<Entry>;

    void remove(std::map<QUrl, Entries::iterator>::iterator position);

    const qint64 m_limitBytes;
    mutable std::mutex m_mutex;
    Moment m_now = 0;
    qint64 m_sizeBytes = 0;
    Entries m_entries;
    std::map<QUrl, Entries::iterator> m_index;
};

} // namespace reelsmith
