// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/OngoingWork.h"
#include "platform/foundation/URLs.h"
#include "platform/services/HTTPClient.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <deque>

namespace reelsmith {

/// A client whose downloads go on when the test says so, the oldest first. Main thread.
class ScriptedHTTPClient : public HTTPClient {
public:
    void download(const QUrl& url, Destination destination, Progress progress,
                  Completion completion) override {
        m_transfers.push_back({url, std::move(destination), std::move(progress), std::move(completion)});
    }

    bool isBusy() const { return !m_transfers.empty(); }

    void report(qint64 received, const std::optional<qint64>& expected) {
        m_transfers.front().progress({received, expected});
    }

    /// The transfer ends with `body` at its destination.
    void finish(const QByteArray& body) {
        const Transfer transfer = take();
        const QUrl file = transfer.destination().fileURL;
        QDir().mkpath(QFileInfo(file.toLocalFile()).path());
        QFile target(file.toLocalFile());
        if (target.open(QIODevice::WriteOnly))
            target.write(body);
        target.close();
        transfer.completion(file);
    }

    void fail() { take().completion(std::nullopt); }

private:
    struct Transfer {
        QUrl url;
        Destination destination;
        Progress progress;
        Completion completion;
        std::shared_ptr<OngoingWork> work = std::make_shared<OngoingWork>();
    };

    Transfer take() {
        Transfer transfer = std::move(m_transfers.front());
        m_transfers.pop_front();
        return transfer;
    }

    std::deque<Transfer> m_transfers;
};

} // namespace reelsmith
