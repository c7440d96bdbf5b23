// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commandline/ProgressLine.h"

#include <QUrl>
#include <QVariantMap>
#include <optional>
#include <string>

namespace reelsmith {

/// Tells on standard output and standard error what becomes of a conversion, for people or, as JSON, for
/// programs.
class ConversionReport {
public:
    enum class Format { Text, Json };

    /// `hasProgressLine`: whether people are to see the progress.
    ConversionReport(Format format, bool hasProgressLine)
        : m_format(format), m_hasProgressLine(hasProgressLine) {}

    /// `estimatedBytes`: what the result is expected to come to, where known.
    void start(const std::string& source, const QUrl& output, std::optional<qint64> estimatedBytes);
    void progress(double fraction);
    void done(const QUrl& output);

    /// `cause`: what lies behind the reason, for those who want to know.
    void failed(const QString& reason, const QString& cause);

private:
    void printEvent(const QString& event, QVariantMap values) const;

    const Format m_format;
    const bool m_hasProgressLine;
    ProgressLine m_line;
    QVariantMap m_conversion;
};

} // namespace reelsmith
