// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/ExportRun.h"

#include "platform/avfoundation/SourceFile.h"
#include "platform/avfoundation/UserLanguages.h"

#include <QLoggingCategory>

namespace reelsmith {

namespace {

using mediaworker::Channel;
using mediaworker::ExportFinished;
using mediaworker::ExportProgress;
using mediaworker::ExportRequest;
using mediaworker::Letter;

tl::unexpected<Error> cancelled() {
    return failure(QStringLiteral("cancelled"));
}

} // namespace

ExportRun::ExportRun(QUrl source, QUrl output, media::Preset preset)
    : m_source(std::move(source)), m_output(std::move(output)), m_preset(preset) {}

Result<void> ExportRun::run(const ProgressHandler& onProgress) {
    auto source = openSourceFile(m_source);
    if (!source)
        return tl::unexpected(source.error());
    auto output = TemporaryOutput::create(m_output);
    if (!output)
        return tl::unexpected(output.error());
    if (auto started = startWorker(); !started)
        return started;
    const ExportRequest request{m_preset, userLanguages()};
    // A worker that is gone already is found out by whoever waits for its answer.
    m_worker->channel().send(request, {source->number(), (*output)->descriptor()});
    auto followed = followWorker(onProgress, **output);
    endWorker();
    if (!followed)
        return followed;
    if (auto flushed = (*output)->flush(); !flushed)
        return flushed;
    return moveIntoPlace(**output);
}

Result<void> ExportRun::startWorker() {
    auto worker = WorkerProcess::start(WorkerProcess::Role::Export);
    if (!worker)
        return tl::unexpected(worker.error());
    const std::lock_guard lock(m_mutex);
    if (m_isCancelled)
        return cancelled();
    m_worker = std::move(*worker);
    return {};
}

Result<void> ExportRun::followWorker(const ProgressHandler& onProgress, const TemporaryOutput& output) {
    double fraction = 0;
    for (;;) {
        Letter letter;
        if (m_worker->channel().receive(letter) != Channel::Status::Received)
            return failure(m_worker->causeOfDeath());
        if (const auto* progress = std::get_if<ExportProgress>(&letter.message)) {
            fraction = std::max(fraction, progress->fraction);
            onProgress(fraction);
            output.startFlushing();
        } else if (const auto* finished = std::get_if<ExportFinished>(&letter.message)) {
            if (!finished->warnings.empty())
                qWarning().noquote() << QString::fromStdString(finished->warnings);
            return finished->problem.empty() ? Result<void>()
                                             : failure(QString::fromStdString(finished->problem));
        } else {
            return failure(QStringLiteral("the media worker answered another question"));
        }
    }
}

void ExportRun::endWorker() {
    std::unique_ptr<WorkerProcess> worker;
    const std::lock_guard lock(m_mutex);
    worker = std::move(m_worker);
}

Result<void> ExportRun::moveIntoPlace(TemporaryOutput& output) {
    const std::lock_guard lock(m_mutex);
    if (m_isCancelled)
        return cancelled();
    return output.moveIntoPlace();
}

void ExportRun::cancel() {
    const std::lock_guard lock(m_mutex);
    m_isCancelled = true;
    if (m_worker)
        m_worker->kill();
}

bool ExportRun::isCancelled() const {
    const std::lock_guard lock(m_mutex);
    return m_isCancelled;
}

} // namespace reelsmith
