// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commandline/ProgressLine.h"
#include "platform/services/HTTPClient.h"

#include <QUrl>
#include <QVariantMap>
#include <optional>
#include <string>

namespace reelsmith {

/// Tells on standard output and standard error what becomes of a source, for people or, as JSON, for
/// programs.
class ConversionReport {
public:
    enum class Format { Text, Json };

    /// `hasProgressLine`: whether people are to see the progress.
    ConversionReport(Format format, bool hasProgressLine)
        : m_format(format), m_hasProgressLine(hasProgressLine) {}

    /// What comes next is about a source on the web, to which the rest applies once it was downloaded.
    void startDownload(const std::string& source, const QUrl& address, const QUrl& output);
    void progress(const DownloadProgress& progress);
    void downloaded(const QUrl& file);

    /// `estimatedBytes`: what the result is expected to come to, where known.
    void start(const std::string& source, const QUrl& output, std::optional<qint64> estimatedBytes);
    void progress(double fraction);
    void done(const QUrl& output);

    /// `cause`: what lies behind the reason, for those who want to know.
    void failed(const QString& reason, const QString& cause);

private:
    void begin(const QString& lineName, const std::string& source, const QUrl& output);
    void printEvent(const QString& event, QVariantMap values) const;

    const Format m_format;
    const bool m_hasProgressLine;
    ProgressLine m_line;
    QVariantMap m_conversion;
};

} // namespace reelsmith
