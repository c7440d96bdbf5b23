// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/ConversionReport.h"

#include "commandline/StandardStreams.h"
#include "platform/foundation/URLs.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace reelsmith {

namespace {

QString pathText(const QUrl& url) {
    return QString::fromStdString(filePath(url).string());
}

} // namespace

void ConversionReport::start(const std::string& source, const QUrl& output,
                             std::optional<qint64> estimatedBytes) {
    m_line.begin(QString::fromStdString(filePath(output).filename().string()));
    m_conversion = {{QStringLiteral("source"), QString::fromStdString(source)},
                    {QStringLiteral("output"), pathText(output)}};
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
    std::error_code error;
    const auto bytes = std::filesystem::file_size(filePath(output), error);
    if (m_format == Format::Text)
        printLine(filePath(output).string());
    printEvent(QStringLiteral("done"), {{QStringLiteral("bytes"), static_cast<qint64>(error ? 0 : bytes)}});
}

void ConversionReport::failed(const QString& reason, const QString& cause) {
    m_line.clear();
    printErrorLine(reason);
    if (!cause.isEmpty())
        printErrorLine(cause);
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
