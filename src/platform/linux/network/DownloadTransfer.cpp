// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/DownloadTransfer.h"

#include "platform/foundation/URLs.h"
#include "platform/linux/network/Answered.h"

namespace reelsmith {

namespace {

constexpr qint64 pieceBytes = 64 * 1024;
constexpr std::chrono::milliseconds reportInterval{100};

} // namespace

DownloadTransfer::DownloadTransfer(QNetworkReply* reply, DownloadDestination destination,
                                   std::unique_ptr<TemporaryOutput> output, HTTPClient::Progress progress,
                                   HTTPClient::Completion completion)
    : QObject(reply),
      m_reply(reply),
      m_destination(std::move(destination)),
      m_output(std::move(output)),
      m_progress(std::move(progress)),
      m_completion(std::move(completion)) {
    m_file.open(m_output->descriptor(), QIODevice::WriteOnly | QIODevice::Unbuffered);
    m_nextReport.setSingleShot(true);
    m_nextReport.setInterval(reportInterval);
    connect(&m_nextReport, &QTimer::timeout, this, &DownloadTransfer::report);
    connect(m_reply, &QNetworkReply::readyRead, this, &DownloadTransfer::store);
    connect(m_reply, &QNetworkReply::finished, this, &DownloadTransfer::finish);
}

void DownloadTransfer::store() {
    QByteArray piece;
    while (m_writeError.isEmpty() && !(piece = m_reply->read(pieceBytes)).isEmpty()) {
        if (m_file.write(piece) != piece.size())
            m_writeError = m_file.errorString();
        m_receivedBytes += piece.size();
    }
    if (!m_nextReport.isActive())
        m_nextReport.start();
    if (!m_writeError.isEmpty())
        m_reply->abort();
}

void DownloadTransfer::report() const {
    m_progress({m_receivedBytes, expectedBytes()});
}

void DownloadTransfer::finish() {
    m_reply->deleteLater();
    const auto stored = result();
    m_output.reset();
    if (m_nextReport.isActive())
        report();
    m_nextReport.stop();
    if (!stored)
        qWarning("A download failed: %s", qUtf8Printable(stored.error().localizedDescription));
    const HTTPClient::Completion completion = std::move(m_completion);
    completion(stored ? std::optional(m_destination.fileURL) : std::nullopt);
}

Result<void> DownloadTransfer::result() {
    if (isAnswered(*m_reply))
        store();
    if (!m_writeError.isEmpty())
        return failure(m_writeError);
    if (!isAnswered(*m_reply))
        return failure(m_reply->errorString());
    // Now and then Qt takes the end of a connection for the end of the body.
    if (expectedBytes().value_or(m_receivedBytes) != m_receivedBytes)
        return failure(QStringLiteral("the body is not as long as it should be"));
    return moveIntoPlace();
}

Result<void> DownloadTransfer::moveIntoPlace() {
    std::error_code error;
    if (!(m_destination.options & DownloadDestination::RemovePreviousFile) &&
        std::filesystem::exists(filePath(m_destination.fileURL), error))
        return failure(QStringLiteral("there is a file of that name already"));
    return m_output->moveIntoPlace();
}

std::optional<qint64> DownloadTransfer::expectedBytes() const {
    // On a busy machine Qt joins the headers of a redirection with those of what it leads to: "0, 10".
    const qint64 bytes = m_reply->rawHeader("Content-Length").split(',').last().trimmed().toLongLong();
    return bytes > 0 ? std::optional(bytes) : std::nullopt;
}

} // namespace reelsmith
