// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <mutex>

namespace reelsmith {

/// Looks a host up on a thread that nobody waits for. A resolver without a network takes its time, and a
/// program in which Qt looks up meanwhile does not end before it has an answer.
class HostLookup : public QObject {
public:
    /// `done` runs later, on this thread, unless the lookup is gone by then.
    HostLookup(const QString& host, std::function<void(bool isFound)> done, QObject* parent);
    ~HostLookup() override;

private:
    struct Link {
        std::mutex mutex;
        HostLookup* lookup;
    };

    const std::shared_ptr<Link> m_link;
};

} // namespace reelsmith
