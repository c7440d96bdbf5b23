// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/AVAssetExportSession.h"

#include "platform/avfoundation/EnginePreset.h"
#include "platform/avfoundation/ExportRun.h"
#include "platform/avfoundation/ExportThreads.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/FatalError.h"
#include "platform/foundation/OngoingWork.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>

namespace reelsmith {

namespace {

// The last step belongs to the file that stands in its place.
constexpr float mostProgressBeforeEnd = 0.999F;

} // namespace

/// What the session and the thread of its export share.
class AVAssetExportSession::Export : public CancellableExport {
public:
    Export(AVAsset source, media::Preset sourcePreset) : asset(std::move(source)), preset(sourcePreset) {}

    /// From start to end, on the export's own thread.
    void perform(const std::function<void()>& completion) {
        {
            const OngoingWork work;
            if (prepare())
                finish(m_run->run([this](double fraction) { setProgress(fraction); }));
        }
        end(completion);
    }

    /// Instead of perform(); nobody may wait for the completion then, which the caller sees to.
    void fail() {
        const std::lock_guard lock(mutex);
        if (status < AVAssetExportSessionStatus::Completed) {
            status = AVAssetExportSessionStatus::Failed;
            error = Error{QStringLiteral("there is no thread to be had")};
        }
        isOver = true;
        ended.notify_all();
    }

    void cancel() override {
        const std::lock_guard lock(mutex);
        if (m_run)
            m_run->cancel();
        else if (status < AVAssetExportSessionStatus::Completed)
            status = AVAssetExportSessionStatus::Cancelled;
    }

    const AVAsset asset;
    const media::Preset preset;

    mutable std::mutex mutex;
    mutable std::condition_variable ended;
    QUrl outputURL;
    std::optional<AVFileType> outputFileType;
    AVAssetExportSessionStatus status = AVAssetExportSessionStatus::Unknown;
    std::optional<Error> error;
    float progress = 0;
    bool isStarted = false;
    bool isOver = false;

private:
    void end(const std::function<void()>& completion) {
        completion();
        const std::lock_guard lock(mutex);
        isOver = true;
        ended.notify_all();
    }

    bool prepare() {
        const std::lock_guard lock(mutex);
        if (status == AVAssetExportSessionStatus::Cancelled)
            return false;
        if (!outputFileType) {
            status = AVAssetExportSessionStatus::Failed;
            error = Error{QStringLiteral("no output file type was set")};
            return false;
        }
        status = AVAssetExportSessionStatus::Exporting;
        m_run = std::make_unique<ExportRun>(asset.url(), outputURL, preset);
        return true;
    }

    void setProgress(double fraction) {
        const std::lock_guard lock(mutex);
        progress = std::min(static_cast<float>(fraction), mostProgressBeforeEnd);
    }

    void finish(const Result<void>& result) {
        const std::lock_guard lock(mutex);
        if (result) {
            progress = 1;
            status = AVAssetExportSessionStatus::Completed;
        } else if (m_run->isCancelled()) {
            status = AVAssetExportSessionStatus::Cancelled;
        } else {
            error = result.error();
            status = AVAssetExportSessionStatus::Failed;
        }
    }

    // Made by prepare(), then kept.
    std::unique_ptr<ExportRun> m_run;
};

std::shared_ptr<AVAssetExportSession> AVAssetExportSession::initWithAsset(const AVAsset& asset,
                                                                          const QString& presetName) {
    const std::optional<media::Preset> preset = enginePreset(presetName);
    if (!preset)
        return nullptr;
    return std::shared_ptr<AVAssetExportSession>(
        new AVAssetExportSession(std::make_shared<Export>(asset, *preset)));
}

void AVAssetExportSession::setOutputURL(const QUrl& url) {
    const std::lock_guard lock(m_export->mutex);
    m_export->outputURL = url;
}

QUrl AVAssetExportSession::outputURL() const {
    const std::lock_guard lock(m_export->mutex);
    return m_export->outputURL;
}

void AVAssetExportSession::setOutputFileType(AVFileType type) {
    const std::lock_guard lock(m_export->mutex);
    m_export->outputFileType = type;
}

std::optional<AVFileType> AVAssetExportSession::outputFileType() const {
    const std::lock_guard lock(m_export->mutex);
    return m_export->outputFileType;
}

AVAssetExportSessionStatus AVAssetExportSession::status() const {
    const std::lock_guard lock(m_export->mutex);
    return m_export->status;
}

std::optional<Error> AVAssetExportSession::error() const {
    const std::lock_guard lock(m_export->mutex);
    return m_export->error;
}

float AVAssetExportSession::progress() const {
    const std::lock_guard lock(m_export->mutex);
    return m_export->progress;
}

void AVAssetExportSession::exportAsynchronously(std::function<void()> completion) {
    {
        const std::lock_guard lock(m_export->mutex);
        if (m_export->isStarted)
            fatalError("An export session exports once", "platform/avfoundation/AVAssetExportSession",
                       __LINE__);
        m_export->isStarted = true;
        if (m_export->status == AVAssetExportSessionStatus::Unknown)
            m_export->status = AVAssetExportSessionStatus::Waiting;
    }
    const auto perform = [shared = m_export, completion] { shared->perform(completion); };
    if (!ExportThreads::shared().start(m_export, perform)) {
        m_export->fail();
        DispatchQueue::main().async(std::move(completion));
    }
}

void AVAssetExportSession::cancelExport() {
    m_export->cancel();
}

void AVAssetExportSession::waitUntilEnded() const {
    std::unique_lock lock(m_export->mutex);
    m_export->ended.wait(lock, [this] { return !m_export->isStarted || m_export->isOver; });
}

} // namespace reelsmith
