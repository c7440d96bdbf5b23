// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/VideoConverter.h"

#include "conversion/OutputName.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/SecurityScopedAccess.h"
#include "platform/foundation/URLs.h"
#include "remote/AnalyticsEvents.h"
#include "remote/ReelsmithAnalytics.h"
#include "settings/UserSettings.h"

namespace reelsmith {

namespace {

constexpr std::chrono::milliseconds progressInterval{500};

void printFact(const QString& label, bool value) {
    console(label + (value ? QStringLiteral("true") : QStringLiteral("false")));
}

} // namespace

std::shared_ptr<VideoConverter> VideoConverter::make(const QUrl& videoURL, ConversionQuality quality) {
    return std::shared_ptr<VideoConverter>(new VideoConverter(videoURL, quality));
}

VideoConverter::VideoConverter(const QUrl& videoURL, ConversionQuality quality)
    : m_videoURL(videoURL), m_conversionQuality(exportPresetName(quality)), m_rawQuality(quality) {}

void VideoConverter::setOnFailure(std::function<void(const std::optional<QString>&)> onFailure) {
    m_onFailure = std::move(onFailure);
}

std::shared_ptr<AVAssetExportSession> VideoConverter::exportSession() const {
    const std::lock_guard lock(m_mutex);
    return m_exportSession;
}

std::shared_ptr<Timer> VideoConverter::timer() const {
    const std::lock_guard lock(m_mutex);
    return m_timer;
}

AVAssetExportSessionStatus VideoConverter::exportStatus() const {
    const std::shared_ptr<AVAssetExportSession> session = exportSession();
    return session ? session->status() : AVAssetExportSessionStatus::Unknown;
}

void VideoConverter::convert(const std::optional<QString>& name, Completion completion) {
    DispatchQueue::main().async([weak = weak_from_this(), name, completion = std::move(completion)] {
        if (const auto self = weak.lock())
            self->performConversion(std::nullopt, name, completion);
    });
}

void VideoConverter::performConversion(const std::optional<QUrl>& source, const std::optional<QString>& name,
                                       const Completion& completion) {
    m_currentMode = ConversionMode::legacy;
    beginBackgroundTask();
    const QUrl sourceUrl = source.value_or(m_videoURL);
    const QUrl output = outputUrl(outputBaseName(name, sourceUrl));
    // A file of the same name makes way, unless it is what is to be converted; where it cannot, the export
    // finds out.
    if (!SecurityScopedAccess::isOpenOn(filePath(output)))
        static_cast<void>(FileManager::defaultManager().removeItem(output));

    const AVAsset asset(sourceUrl);
    printFact(QStringLiteral("Playable: "), asset.isPlayable());
    printFact(QStringLiteral("Exportable: "), asset.isExportable());
    const auto session = AVAssetExportSession::initWithAsset(asset, m_conversionQuality);
    if (session) {
        session->setOutputURL(output);
        session->setOutputFileType(AVFileType::MPEG4);
    }
    {
        const std::lock_guard lock(m_mutex);
        m_exportSession = session;
    }
    // The timer comes first: an export that fails at once must find it.
    scheduleTimer();
    startExport(output, completion);
}

void VideoConverter::beginBackgroundTask() {
    m_bgTaskID = UIApplication::shared().beginBackgroundTask([weak = weak_from_this()] {
        const auto self = weak.lock();
        if (self && self->m_bgTaskID)
            UIApplication::shared().endBackgroundTask(*self->m_bgTaskID);
    });
}

void VideoConverter::scheduleTimer() {
    auto timer = Timer::scheduledTimer(progressInterval, [weak = weak_from_this()] {
        if (const auto self = weak.lock())
            self->updateProgress(0);
    });
    // An earlier timer must not end under the lock: its own is taken first elsewhere.
    const std::lock_guard lock(m_mutex);
    m_timer.swap(timer);
}

void VideoConverter::startExport(const QUrl& output, const Completion& completion) {
    DispatchQueue::global(QualityOfService::UserInitiated)
        .async([weak = weak_from_this(), output, completion] {
            const auto self = weak.lock();
            const auto session = self ? self->exportSession() : nullptr;
            if (!session)
                return;
            session->exportAsynchronously([weak, output, completion] {
                if (const auto converter = weak.lock())
                    converter->exportEnded(output, completion);
            });
        });
}

void VideoConverter::exportEnded(const QUrl& output, const Completion& completion) {
    if (exportStatus() == AVAssetExportSessionStatus::Completed) {
        DispatchQueue::main().async([weak = weak_from_this(), output, completion] {
            if (const auto self = weak.lock())
                self->exportCompleted(output, completion);
        });
    }
    if (exportStatus() == AVAssetExportSessionStatus::Failed)
        exportFailed();
    if (exportStatus() == AVAssetExportSessionStatus::Cancelled)
        exportCancelled();
}

void VideoConverter::exportCompleted(const QUrl& output, const Completion& completion) {
    console(QStringLiteral("ENDED"));
    timer()->invalidate();
    ReelsmithAnalytics::logEvent(AnalyticsEvents::convertedSuccess);
    UserSettings::shared().incrementConversionCount();
    completion(output);
}

void VideoConverter::exportFailed() {
    {
        // Held until it is invalid, so that no progress is reported after the failure.
        const std::shared_ptr<Timer> ending = timer();
        const Timer::Hold hold = ending->hold();
        console(QStringLiteral("FAILED"));
        const auto session = exportSession();
        const auto error = session ? session->error() : std::nullopt;
        ReelsmithAnalytics::logConvertedFailure(error ? error->localizedDescription
                                                      : QStringLiteral("unknown"));
        ending->invalidate();
        console(error ? error->localizedDescription : QStringLiteral("Unknown error"));
    }
    m_onFailure(QStringLiteral("Invalid file"));
}

void VideoConverter::exportCancelled() {
    const std::shared_ptr<Timer> ending = timer();
    const Timer::Hold hold = ending->hold();
    console(QStringLiteral("CANCELLED"));
    ending->invalidate();
}

void VideoConverter::updateProgress(float progress) {
    console(QStringLiteral("Sending value"));
    VideoConverterDelegate* const delegate = m_delegate.get();
    ProgressDisplay* const display = delegate ? delegate->progressDisplay() : nullptr;
    const auto session = exportSession();
    if (m_currentMode == ConversionMode::new_) {
        if (display)
            display->updateProgress(static_cast<double>(progress));
    } else if (session && display) {
        display->updateProgress(static_cast<double>(session->progress()));
    }
}

} // namespace reelsmith
