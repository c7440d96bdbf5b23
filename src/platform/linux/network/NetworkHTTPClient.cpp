// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/NetworkHTTPClient.h"

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/FileManager.h"
#include "platform/linux/network/DownloadTransfer.h"

namespace reelsmith {

namespace {

// Without a limit all that comes before it can be written would be held in memory.
constexpr qint64 readBufferBytes = 1024 * 1024;

Result<void> checkAddress(const QUrl& url) {
    const QString scheme = url.scheme();
    const bool isWeb = scheme == QLatin1String("http") || scheme == QLatin1String("https");
    if (!isWeb || url.host().isEmpty())
        return failure(QStringLiteral("that is no web address"));
    return {};
}

Result<std::unique_ptr<TemporaryOutput>> openOutput(const DownloadDestination& destination) {
    if (destination.fileURL.isEmpty())
        return failure(QStringLiteral("the address names no file"));
    if (destination.options & DownloadDestination::CreateIntermediateDirectories) {
        const QUrl folder = destination.fileURL.adjusted(QUrl::RemoveFilename);
        if (auto made = FileManager::defaultManager().createDirectory(folder); !made)
            return tl::unexpected(made.error());
    }
    return TemporaryOutput::create(destination.fileURL);
}

} // namespace

void NetworkHTTPClient::download(const QUrl& url, Destination destination, Progress progress,
                                 Completion completion) {
    const DownloadDestination place = destination();
    auto output = checkAddress(url).and_then([&place] { return openOutput(place); });
    if (!output) {
        qWarning("A download cannot begin: %s", qUtf8Printable(output.error().localizedDescription));
        DispatchQueue::main().async([completion = std::move(completion)] { completion(std::nullopt); });
        return;
    }
    QNetworkRequest request(url);
    request.setTransferTimeout(static_cast<int>(m_patience.count()));
    // Over HTTP/2 the buffer's limit does not hold back the server.
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    QNetworkReply* const reply = m_manager.get(request);
    reply->setReadBufferSize(readBufferBytes);
    new DownloadTransfer(reply, place, std::move(*output), std::move(progress), std::move(completion));
}

} // namespace reelsmith
