// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commandline/Arguments.h"
#include "commandline/ConversionReport.h"
#include "conversion/VideoConverter.h"
#include "platform/foundation/SecurityScopedAccess.h"
#include "sources/VideoDownloader.h"

#include <QObject>
#include <memory>

namespace reelsmith {

/// `reelsmith convert`: downloads where need be and converts one source after another on the event loop, and
/// ends the application with the exit status. Of the downloads nothing stays.
class ConvertCommand : public QObject,
                       public VideoDownloaderDelegate,
                       public VideoConverterDelegate,
                       public ProgressDisplay {
public:
    static constexpr int exitFailed = 1;
    static constexpr int exitInterrupted = 130;

    ConvertCommand(Arguments arguments, ConversionReport report)
        : m_arguments(std::move(arguments)), m_report(std::move(report)) {}

    void start();

    /// Cancels what is under way and ends.
    void interrupt();

    void didUpdateProgress(double) override {} // comes with the bytes
    void didReceiveBytes(const DownloadProgress& progress) override { m_report.progress(progress); }
    ProgressDisplay* progressDisplay() override { return this; }
    void updateProgress(double progress) override { m_report.progress(progress); }

private:
    void convertNext();
    void download(const QUrl& address);
    void downloadEnded(const VideoDownloader::DownloadResult& result);
    void convert(const QUrl& url);
    void succeed(const QUrl& output);
    void fail(const QString& reason);
    QString conversionError() const;
    void letGoOfSource();
    std::optional<qint64> estimatedBytes(const QUrl& source) const;

    const Arguments m_arguments;
    ConversionReport m_report;
    std::size_t m_next = 0;
    std::string m_source;
    bool m_hasFailed = false;
    bool m_isInterrupted = false;
    std::optional<QUrl> m_downloaded;
    std::unique_ptr<SecurityScopedAccess> m_access;
    std::shared_ptr<VideoConverter> m_converter;
};

} // namespace reelsmith
