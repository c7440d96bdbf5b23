// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/ConvertCommand.h"

#include "RemoteSettings/RemoteSettings.h"
#include "conversion/OutputName.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/URLs.h"
#include "remote/FeatureToggles.h"

#include <QCoreApplication>
#include <QPointer>

namespace reelsmith {

void ConvertCommand::start() {
    DispatchQueue::main().async([this] { convertNext(); });
}

void ConvertCommand::convertNext() {
    if (m_isInterrupted)
        return;
    letGoOfSource();
    if (m_next == m_arguments.sources.size()) {
        QCoreApplication::exit(m_hasFailed ? exitFailed : 0);
        return;
    }
    m_source = m_arguments.sources[m_next++];
    if (const auto address = Arguments::webAddress(m_source))
        download(*address);
    else
        convert(fileUrl(m_source));
}

void ConvertCommand::download(const QUrl& address) {
    m_report.startDownload(m_source, address, outputUrl(outputBaseName(m_arguments.name, address)));
    const auto downloader = VideoDownloader::make(address);
    downloader->setDelegate(this);
    downloader->download([this](const VideoDownloader::DownloadResult& result) { downloadEnded(result); });
}

void ConvertCommand::downloadEnded(const VideoDownloader::DownloadResult& result) {
    if (!result) {
        fail(QStringLiteral("Reelsmith could not download the selected video."));
        return;
    }
    m_downloaded = *result;
    m_report.downloaded(*result);
    convert(*result);
}

void ConvertCommand::convert(const QUrl& url) {
    m_access = std::make_unique<SecurityScopedAccess>(url);
    // Where the access is refused, the export says why.
    m_access->start();

    const QString name = outputBaseName(m_arguments.name, url);
    m_report.start(m_source, outputUrl(name), estimatedBytes(url));
    m_converter = VideoConverter::make(url, m_arguments.quality);
    m_converter->setDelegate(this);
    m_converter->setOnFailure([command = QPointer(this)](const std::optional<QString>& reason) {
        DispatchQueue::main().async([command, reason] {
            if (command)
                command->fail(reason.value_or(QString()));
        });
    });
    m_converter->convert(name, [this](const QUrl& output) { succeed(output); });
}

// Only programs ask: for people it would cost every conversion a look ahead.
std::optional<qint64> ConvertCommand::estimatedBytes(const QUrl& source) const {
    if (!m_arguments.isJson)
        return std::nullopt;
    const bool passthroughEnabled = RemoteSettings::shared().isEnabled<FeatureToggles::PassthroughEnabled>();
    return AVAsset(source).estimatedOutputFileLength(
        exportPresetName(m_arguments.quality, passthroughEnabled));
}

void ConvertCommand::succeed(const QUrl& output) {
    if (m_isInterrupted)
        return;
    m_report.done(output);
    convertNext();
}

void ConvertCommand::fail(const QString& reason) {
    if (m_isInterrupted)
        return;
    m_hasFailed = true;
    m_report.failed(reason, conversionError());
    convertNext();
}

QString ConvertCommand::conversionError() const {
    const auto session = m_converter ? m_converter->exportSession() : nullptr;
    const std::optional<Error> error = session ? session->error() : std::nullopt;
    return error ? error->localizedDescription : QString();
}

void ConvertCommand::letGoOfSource() {
    m_converter.reset();
    m_access.reset();
    if (m_downloaded)
        static_cast<void>(FileManager::defaultManager().removeItem(*m_downloaded));
    m_downloaded.reset();
}

void ConvertCommand::interrupt() {
    m_isInterrupted = true;
    if (const auto session = m_converter ? m_converter->exportSession() : nullptr) {
        session->cancelExport();
        session->waitUntilEnded();
    }
    letGoOfSource();
    m_report.failed(QStringLiteral("Interrupted"), {});
    QCoreApplication::exit(exitInterrupted);
}

} // namespace reelsmith
