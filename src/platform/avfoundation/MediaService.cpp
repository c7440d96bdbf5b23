// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/MediaService.h"

#include <QCoreApplication>
#include <system_error>
#include <utility>

namespace reelsmith {

namespace {

using mediaworker::AssetProperties;
using mediaworker::Channel;
using mediaworker::Letter;
using mediaworker::ProbeRequest;
using mediaworker::ThumbnailReply;

constexpr std::chrono::seconds attemptLimit{10};
// Where more would look at files at once, exports and playing would feel it.
constexpr int pictureWorkers = 2;

} // namespace

MediaRequest::MediaRequest(mediaworker::Message question, mediaworker::Descriptor source,
                           mediaworker::Descriptor output)
    : m_question(std::move(question)),
      m_source(std::move(source)),
      m_output(std::move(output)),
      m_answer(m_promise.get_future().share()) {}

MediaService& MediaService::properties() {
    static MediaService service(1);
    // The application object waits for the global queues when it ends: their questions must have answers by
    // then.
    static const bool isRegistered = (qAddPostRoutine([] { properties().stop(); }), true);
    Q_UNUSED(isRegistered)
    return service;
}

MediaService& MediaService::pictures() {
    static MediaService service(pictureWorkers);
    static const bool isRegistered = (qAddPostRoutine([] { pictures().stop(); }), true);
    Q_UNUSED(isRegistered)
    return service;
}

MediaService::MediaService(int workerCount, std::chrono::milliseconds idleLimit) : m_idleLimit(idleLimit) {
    for (int count = 0; count < workerCount; ++count) {
        Lane& lane = *m_lanes.emplace_back(std::make_unique<Lane>());
        try {
            lane.thread = std::thread([this, &lane] { serve(lane); });
        } catch (const std::system_error&) {
            m_lanes.pop_back();
        }
    }
    m_isStopped = m_lanes.empty();
}

MediaService::~MediaService() {
    stop();
    for (const auto& lane : m_lanes)
        lane->thread.join();
}

void MediaService::ask(const std::shared_ptr<MediaRequest>& request) {
    const std::lock_guard lock(m_mutex);
    if (m_isStopped) {
        request->m_promise.set_value(failure(QStringLiteral("there is nobody to ask")));
        return;
    }
    m_waiting.push_back(request);
    m_change.notify_one();
}

void MediaService::withdraw(const std::shared_ptr<MediaRequest>& request) {
    const std::lock_guard lock(m_mutex);
    for (const auto& lane : m_lanes) {
        if (lane->current == request)
            cutOff(*lane);
    }
    if (std::erase(m_waiting, request) > 0)
        request->m_promise.set_value(failure(QStringLiteral("withdrawn")));
}

void MediaService::stop() {
    const std::lock_guard lock(m_mutex);
    m_isStopped = true;
    for (const auto& lane : m_lanes) {
        if (lane->current)
            cutOff(*lane);
    }
    m_change.notify_all();
}

void MediaService::serve(Lane& lane) {
    while (const std::shared_ptr<MediaRequest> request = takeNext(lane))
        finish(lane, attempt(lane, *request));
    {
        // A worker without work does not end by itself.
        const std::lock_guard lock(m_mutex);
        cutOff(lane);
    }
    dropWorker(lane);
}

std::shared_ptr<MediaRequest> MediaService::takeNext(Lane& lane) {
    const auto hasNews = [this] { return m_isStopped || !m_waiting.empty(); };
    std::unique_lock lock(m_mutex);
    if (lane.worker && !m_change.wait_for(lock, m_idleLimit, hasNews)) {
        cutOff(lane);
        lock.unlock();
        dropWorker(lane);
        lock.lock();
    }
    m_change.wait(lock, hasNews);
    if (m_isStopped) {
        for (const std::shared_ptr<MediaRequest>& request : std::exchange(m_waiting, {}))
            request->m_promise.set_value(failure(QStringLiteral("there is nobody to ask")));
        return nullptr;
    }
    lane.current = std::move(m_waiting.front());
    m_waiting.pop_front();
    lane.isCutOff = false;
    return lane.current;
}

MediaRequest::Answer MediaService::attempt(Lane& lane, MediaRequest& request) {
    if (!send(lane, request)) {
        // The worker may have died since the last question, or take none; a new one does.
        if (lane.worker)
            lane.worker->kill();
        dropWorker(lane);
        if (auto started = startWorkerWhereNone(lane); !started)
            return tl::unexpected(started.error());
        if (!send(lane, request))
            return failure(dropWorker(lane));
    }
    Letter letter;
    switch (lane.worker->channel().receive(letter, attemptLimit)) {
    case Channel::Status::Received:
        break;
    case Channel::Status::TimedOut:
        lane.worker->kill();
        dropWorker(lane);
        return failure(QStringLiteral("the media worker took longer than %1 s").arg(attemptLimit.count()));
    case Channel::Status::Closed:
        return failure(dropWorker(lane));
    }
    const bool isFitting = std::holds_alternative<ProbeRequest>(request.m_question)
                               ? std::holds_alternative<AssetProperties>(letter.message)
                               : std::holds_alternative<ThumbnailReply>(letter.message);
    if (!isFitting) {
        lane.worker->kill();
        dropWorker(lane);
        return failure(QStringLiteral("the media worker answered another question"));
    }
    return std::move(letter.message);
}

Result<void> MediaService::startWorkerWhereNone(Lane& lane) {
    if (lane.worker)
        return {};
    auto worker = WorkerProcess::start(WorkerProcess::Role::Inspect);
    if (!worker)
        return tl::unexpected(worker.error());
    const std::lock_guard lock(m_mutex);
    if (lane.isCutOff)
        return failure(QStringLiteral("cut off"));
    lane.worker = std::move(*worker);
    return {};
}

bool MediaService::send(Lane& lane, MediaRequest& request) {
    std::vector<int> descriptors{request.m_source.number()};
    if (request.m_output.isOpen())
        descriptors.push_back(request.m_output.number());
    return lane.worker && lane.worker->channel().send(request.m_question, descriptors);
}

void MediaService::finish(Lane& lane, MediaRequest::Answer answer) {
    {
        const std::lock_guard lock(m_mutex);
        std::exchange(lane.current, nullptr)->m_promise.set_value(std::move(answer));
        if (!lane.isCutOff)
            return;
    }
    // The kill may have come after the answer.
    dropWorker(lane);
}

void MediaService::cutOff(Lane& lane) {
    lane.isCutOff = true;
    if (lane.worker)
        lane.worker->kill();
}

QString MediaService::dropWorker(Lane& lane) {
    std::unique_ptr<WorkerProcess> worker;
    {
        const std::lock_guard lock(m_mutex);
        worker = std::move(lane.worker);
    }
    return worker ? worker->causeOfDeath() : QString();
}

} // namespace reelsmith
