// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/ConversionMode.h"
#include "conversion/ConversionQuality.h"
#include "conversion/VideoConverterDelegate.h"
#include "platform/avfoundation/AVAssetExportSession.h"
#include "platform/foundation/Timer.h"
#include "platform/foundation/WeakDelegate.h"
#include "platform/uikit/UIApplication.h"

#include <QUrl>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace reelsmith {

/// Turns one video file into an MP4 file in the outputs folder. For one conversion; main thread, but for what
/// says otherwise. Dropped in the middle, it falls silent, while its export goes on to the end.
class VideoConverter : public std::enable_shared_from_this<VideoConverter> {
public:
    using Completion = std::function<void(const QUrl& output)>;

    /// Picks the export preset, once and for all.
    static std::shared_ptr<VideoConverter> make(const QUrl& videoURL, ConversionQuality quality);

    const QUrl& videoURL() const { return m_videoURL; }
    const QString& conversionQuality() const { return m_conversionQuality; } ///< the export preset's name
    ConversionQuality rawQuality() const { return m_rawQuality; }
    ConversionMode currentMode() const { return m_currentMode; }
    std::optional<float> videoDuration() const { return m_videoDuration; } ///< unknown to this class

    /// The session of the latest conversion; null before the first. Any thread.
    std::shared_ptr<AVAssetExportSession> exportSession() const;

    void setDelegate(WeakDelegate<VideoConverterDelegate> delegate) { m_delegate = std::move(delegate); }

    /// What to do when the export fails; called with the reason, on the thread of the export.
    void setOnFailure(std::function<void(const std::optional<QString>& reason)> onFailure);

    /// Kept for the owner; nothing here calls it.
    void setOnCancel(std::function<void()> onCancel) { m_onCancel = std::move(onCancel); }

    /// Begins a conversion, never before this call has returned. The result is "NAME.mp4" (see
    /// outputBaseName()) and takes the place of a file of that name; `completion` is called once it stands. A
    /// failure calls what was set for it; a cancelled export calls neither.
    void convert(const std::optional<QString>& name, Completion completion);

private:
    VideoConverter(const QUrl& videoURL, ConversionQuality quality);

    void performConversion(const std::optional<QUrl>& source, const std::optional<QString>& name,
                           const Completion& completion);
    void beginBackgroundTask();
    void scheduleTimer();
    void startExport(const QUrl& output, const Completion& completion);
    void updateProgress(float progress);

    void exportEnded(const QUrl& output, const Completion& completion);
    void exportCompleted(const QUrl& output, const Completion& completion);
    void exportFailed();
    void exportCancelled();

    AVAssetExportSessionStatus exportStatus() const;
    std::shared_ptr<Timer> timer() const;

    const QUrl m_videoURL;
    const QString m_conversionQuality;
    const ConversionQuality m_rawQuality;
    // Replaced on the main thread, read on the export's as well.
    mutable std::mutex m_mutex;
    std::shared_ptr<AVAssetExportSession> m_exportSession;
    std::shared_ptr<Timer> m_timer;

    WeakDelegate<VideoConverterDelegate> m_delegate;
    std::optional<UIBackgroundTaskIdentifier> m_bgTaskID;
    std::optional<float> m_videoDuration;
    ConversionMode m_currentMode = ConversionMode::legacy;
    std::function<void(const std::optional<QString>&)> m_onFailure = [](const std::optional<QString>&) {};
    std::function<void()> m_onCancel = [] {};
};

} // namespace reelsmith
