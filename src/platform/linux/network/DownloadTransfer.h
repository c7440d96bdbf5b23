// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/TemporaryOutput.h"
#include "platform/services/HTTPClient.h"

#include <QFile>
#include <QNetworkReply>
#include <QTimer>
#include <memory>

namespace reelsmith {

/// Puts the body of an answer into a file while it comes. Owned by the reply, which goes when all is done.
class DownloadTransfer : public QObject {
public:
    /// `output`: the file in the making at `destination`.
    DownloadTransfer(QNetworkReply* reply, DownloadDestination destination,
                     std::unique_ptr<TemporaryOutput> output, HTTPClient::Progress progress,
                     HTTPClient::Completion completion);

private:
    void store();
    void report() const;
    void finish();
    Result<void> result();
    Result<void> moveIntoPlace();
    std::optional<qint64> expectedBytes() const;

    QNetworkReply* const m_reply;
    const DownloadDestination m_destination;
    std::unique_ptr<TemporaryOutput> m_output;
    QFile m_file;
    QString m_writeError;
    qint64 m_receivedBytes = 0;
    QTimer m_nextReport;
    const HTTPClient::Progress m_progress;
    HTTPClient::Completion m_completion;
};

} // namespace reelsmith
