// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mediaworker/Messages.h"
#include "platform/avfoundation/TemporaryOutput.h"
#include "platform/avfoundation/WorkerProcess.h"

#include <QUrl>
#include <functional>
#include <memory>
#include <mutex>

namespace reelsmith {

/// One export, from opening its source to putting the result in place, with a worker of its own.
class ExportRun {
public:
    using ProgressHandler = std::function<void(double fraction)>;

    ExportRun(QUrl source, QUrl output, media::Preset preset);

    /// Runs the export on the calling thread; once. `onProgress` is called there, with values that never
    /// fall. The result stands in its place if, and only if, this succeeds; a cancelled run fails.
    Result<void> run(const ProgressHandler& onProgress);

    /// Ends the run, whatever it does. Nothing happens once the result stands. Any thread.
    void cancel();
    bool isCancelled() const;

private:
    Result<void> startWorker();
    Result<void> followWorker(const ProgressHandler& onProgress, const TemporaryOutput& output);
    void endWorker();
    Result<void> moveIntoPlace(TemporaryOutput& output);

    const QUrl m_source;
    const QUrl m_output;
    const media::Preset m_preset;
    mutable std::mutex m_mutex;
    bool m_isCancelled = false;
    // Set and emptied by run() under the mutex, killed by cancel() under the mutex.
    std::unique_ptr<WorkerProcess> m_worker;
};

} // namespace reelsmith
