// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/ConvertCommand.h"

#include "RemoteSettings/RemoteSettings.h"
#include "conversion/OutputName.h"
#include "platform/foundation/DispatchQueue.h"
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
    if (m_next == m_arguments.sources.size()) {
        QCoreApplication::exit(m_hasFailed ? exitFailed : 0);
        return;
    }
    const std::string& source = m_arguments.sources[m_next++];
    const QUrl url = fileUrl(source);
    m_access = std::make_unique<SecurityScopedAccess>(url);
    // Where the access is refused, the export says why.
    m_access->start();

    const QString name = outputBaseName(m_arguments.name, url);
    m_report.start(source, outputUrl(name), estimatedBytes(url));
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
    const std::shared_ptr<AVAssetExportSession> session = m_converter->exportSession();
    const std::optional<Error> error = session ? session->error() : std::nullopt;
    m_report.failed(reason, error ? error->localizedDescription : QString());
    convertNext();
}

void ConvertCommand::interrupt() {
    m_isInterrupted = true;
    if (const auto session = m_converter ? m_converter->exportSession() : nullptr) {
        session->cancelExport();
        session->waitUntilEnded();
    }
    m_report.failed(QStringLiteral("Interrupted"), {});
    QCoreApplication::exit(exitInterrupted);
}

} // namespace reelsmith
