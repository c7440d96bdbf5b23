// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/ConversionReport.h"

#include "commandline/StandardStreams.h"
#include "platform/foundation/URLs.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace reelsmith {

namespace {

qint64 sizeBytes(const QUrl& file) {
    std::error_code error;
    const auto bytes = std::filesystem::file_size(filePath(file), error);
    return static_cast<qint64>(error ? 0 : bytes);
}

QString pathText(const QUrl& url) {
    return QString::fromStdString(filePath(url).string());
}

} // namespace

void ConversionReport::begin(const QString& lineName, const std::string& source, const QUrl& output) {
    m_line.begin(lineName);
    m_conversion = {{QStringLiteral("source"), QString::fromStdString(source)},
                    {QStringLiteral("output"), pathText(output)}};
}

void ConversionReport::startDownload(const std::string& source, const QUrl& address, const QUrl& output) {
    begin(QStringLiteral("downloading ") + address.fileName(), source, output);
    printEvent(QStringLiteral("download"), {});
}

void ConversionReport::progress(const DownloadProgress& progress) {
    QVariantMap values{{QStringLiteral("receivedBytes"), progress.receivedBytes}};
    const std::optional<double> fraction = progress.fractionCompleted();
    if (fraction) {
        values.insert(QStringLiteral("expectedBytes"), *progress.expectedBytes);
        values.insert(QStringLiteral("fraction"), *fraction);
    }
    if (m_hasProgressLine)
        fraction ? m_line.show(*fraction) : m_line.showBytes(progress.receivedBytes);
    printEvent(QStringLiteral("downloadProgress"), values);
}

void ConversionReport::downloaded(const QUrl& file) {
    m_line.clear();
    printEvent(QStringLiteral("downloaded"), {{QStringLiteral("bytes"), sizeBytes(file)}});
}

void ConversionReport::start(const std::string& source, const QUrl& output,
                             std::optional<qint64> estimatedBytes) {
    begin(QString::fromStdString(filePath(output).filename().string()), source, output);
    QVariantMap values;
    if (estimatedBytes)
        values.insert(QStringLiteral("bytes"), *estimatedBytes);
    printEvent(QStringLiteral("start"), values);
}

void ConversionReport::progress(double fraction) {
    if (m_hasProgressLine)
        m_line.show(fraction);
    printEvent(QStringLiteral("progress"), {{QStringLiteral("fraction"), fraction}});
}

void ConversionReport::done(const QUrl& output) {
    m_line.clear();
    if (m_format == Format::Text)
        printLine(filePath(output).string());
    printEvent(QStringLiteral("done"), {{QStringLiteral("bytes"), sizeBytes(output)}});
}

void ConversionReport::failed(const QString& reason, const QString& cause) {
    m_line.clear();
    printErrorLine(reason);
    if (!cause.isEmpty())
        printErrorLine(m_conversion.value(QStringLiteral("source")).toString() + QStringLiteral(": ") +
                       cause);
    printEvent(QStringLiteral("failed"), {{QStringLiteral("reason"), reason}});
}

void ConversionReport::printEvent(const QString& event, QVariantMap values) const {
    if (m_format != Format::Json)
        return;
    values.insert(m_conversion);
    values.insert(QStringLiteral("event"), event);
    printLine(
        QJsonDocument(QJsonObject::fromVariantMap(values)).toJson(QJsonDocument::Compact).toStdString());
}

} // namespace reelsmith
