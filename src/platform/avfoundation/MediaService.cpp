// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/MediaService.h"

#include <QCoreApplication>
#include <algorithm>

namespace reelsmith {

namespace {

using mediaworker::AssetProperties;
using mediaworker::Channel;
using mediaworker::Letter;
using mediaworker::ProbeRequest;
using mediaworker::ThumbnailReply;

constexpr std::chrono::seconds attemptLimit{10};

} // namespace

MediaRequest::MediaRequest(mediaworker::Message question, mediaworker::Descriptor source,
                           mediaworker::Descriptor output)
    : m_question(std::move(question)),
      m_source(std::move(source)),
      m_output(std::move(output)),
      m_answer(m_promise.get_future().share()) {}

bool MediaRequest::isProperty() const {
    return std::holds_alternative<ProbeRequest>(m_question);
}

MediaService& MediaService::shared() {
    static MediaService service;
    // The application object waits for the global queues when it ends: their questions must have answers by
    // then.
    static const bool isRegistered = (qAddPostRoutine([] { shared().stop(); }), true);
    Q_UNUSED(isRegistered)
    return service;
}

MediaService::MediaService() : m_thread([this] { serve(); }) {}

MediaService::~MediaService() {
    stop();
    m_thread.join();
}

void MediaService::ask(const std::shared_ptr<MediaRequest>& request) {
    const std::lock_guard lock(m_mutex);
    if (m_isStopped) {
        request->m_promise.set_value(failure(QStringLiteral("the application ends")));
        return;
    }
    (request->isProperty() ? m_properties : m_thumbnails).push_back(request);
    if (request->isProperty() && m_current && !m_current->isProperty())
        cutOffCurrent();
    m_change.notify_one();
}

void MediaService::withdraw(const std::shared_ptr<MediaRequest>& request) {
    const std::lock_guard lock(m_mutex);
    if (m_current == request)
        cutOffCurrent();
    else if (std::erase(m_properties, request) + std::erase(m_thumbnails, request) > 0)
        request->m_promise.set_value(failure(QStringLiteral("withdrawn")));
}

void MediaService::stop() {
    const std::lock_guard lock(m_mutex);
    m_isStopped = true;
    if (m_current)
        cutOffCurrent();
    m_change.notify_one();
}

void MediaService::serve() {
    while (const std::shared_ptr<MediaRequest> request = takeNext())
        finish(request, attempt(*request));
    const std::lock_guard lock(m_mutex);
    m_worker.reset();
}

std::shared_ptr<MediaRequest> MediaService::takeNext() {
    std::unique_lock lock(m_mutex);
    m_change.wait(lock, [this] { return m_isStopped || !m_properties.empty() || !m_thumbnails.empty(); });
    if (m_isStopped) {
        for (Queue* queue : {&m_properties, &m_thumbnails}) {
            for (const std::shared_ptr<MediaRequest>& request : *queue)
                request->m_promise.set_value(failure(QStringLiteral("the application ends")));
            queue->clear();
        }
        return nullptr;
    }
    Queue& queue = m_properties.empty() ? m_thumbnails : m_properties;
    m_current = queue.front();
    queue.pop_front();
    m_isCutOff = false;
    return m_current;
}

MediaRequest::Answer MediaService::attempt(MediaRequest& request) {
    if (!send(request)) {
        // The worker may have died since the last question; a new one has not.
        dropWorker();
        if (auto started = startWorkerWhereNone(); !started)
            return tl::unexpected(started.error());
        if (!send(request))
            return failure(dropWorker());
    }
    Letter letter;
    switch (m_worker->channel().receive(letter, attemptLimit)) {
    case Channel::Status::Received:
        break;
    case Channel::Status::TimedOut:
        m_worker->kill();
        dropWorker();
        return failure(QStringLiteral("the media worker took longer than %1 s").arg(attemptLimit.count()));
    case Channel::Status::Closed:
        return failure(dropWorker());
    }
    const bool isFitting = request.isProperty() ? std::holds_alternative<AssetProperties>(letter.message)
                                                : std::holds_alternative<ThumbnailReply>(letter.message);
    if (!isFitting) {
        m_worker->kill();
        dropWorker();
        return failure(QStringLiteral("the media worker answered another question"));
    }
    return std::move(letter.message);
}

Result<void> MediaService::startWorkerWhereNone() {
    if (m_worker)
        return {};
    auto worker = WorkerProcess::start(WorkerProcess::Role::Inspect);
    if (!worker)
        return tl::unexpected(worker.error());
    const std::lock_guard lock(m_mutex);
    if (m_isCutOff)
        return failure(QStringLiteral("cut off"));
    m_worker = std::move(*worker);
    return {};
}

bool MediaService::send(MediaRequest& request) {
    std::vector<int> descriptors{request.m_source.number()};
    if (request.m_output.isOpen())
        descriptors.push_back(request.m_output.number());
    return m_worker && m_worker->channel().send(request.m_question, descriptors);
}

void MediaService::finish(const std::shared_ptr<MediaRequest>& request, MediaRequest::Answer answer) {
    {
        const std::lock_guard lock(m_mutex);
        m_current = nullptr;
        if (!answer && m_isCutOff && !m_isStopped && !request->isProperty())
            m_thumbnails.push_front(request);
        else
            request->m_promise.set_value(std::move(answer));
        if (!m_isCutOff)
            return;
    }
    // The kill may have come after the answer.
    dropWorker();
}

void MediaService::cutOffCurrent() {
    m_isCutOff = true;
    if (m_worker)
        m_worker->kill();
}

QString MediaService::dropWorker() {
    std::unique_ptr<WorkerProcess> worker;
    {
        const std::lock_guard lock(m_mutex);
        worker = std::move(m_worker);
    }
    return worker ? worker->causeOfDeath() : QString();
}

} // namespace reelsmith
