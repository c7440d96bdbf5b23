// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mediaworker/Channel.h"
#include "platform/avfoundation/WorkerProcess.h"
#include "platform/foundation/Error.h"

#include <condition_variable>
#include <deque>
#include <future>
#include <memory>
#include <mutex>
#include <thread>

namespace reelsmith {

/// A question about a file and, in time, its answer.
class MediaRequest {
public:
    using Answer = Result<mediaworker::Message>;

    /// `output` is for questions that have one; see Messages.h.
    MediaRequest(mediaworker::Message question, mediaworker::Descriptor source,
                 mediaworker::Descriptor output = {});

    /// Waits for the answer. Any thread.
    const Answer& answer() const { return m_answer.get(); }

    /// Whether the answer came by `deadline`; waits until then.
    bool isAnsweredBy(std::chrono::steady_clock::time_point deadline) const {
        return m_answer.wait_until(deadline) == std::future_status::ready;
    }

private:
    friend class MediaService;

    bool isProperty() const;

    mediaworker::Message m_question;
    mediaworker::Descriptor m_source;
    mediaworker::Descriptor m_output;
    std::promise<Answer> m_promise;
    std::shared_future<Answer> m_answer;
};

/// Answers questions about files, one after another, by way of one long-lived worker that is started when
/// first needed and again after it died. Properties come before thumbnails: a thumbnail being made is cut off
/// and made anew later. Each attempt ends after 10 s. Any thread.
class MediaService {
public:
    static MediaService& shared();

    MediaService();
    ~MediaService();
    MediaService(const MediaService&) = delete;
    MediaService& operator=(const MediaService&) = delete;

    void ask(const std::shared_ptr<MediaRequest>& request);

    /// Nobody waits for the answer to this question about properties any more; it comes at once, with what
    /// there is.
    void withdraw(const std::shared_ptr<MediaRequest>& request);

    /// Answers what is open, and whatever is asked from now on, with a failure, and ends the worker.
    void stop();

private:
    using Queue = std::deque<std::shared_ptr<MediaRequest>>;

    void serve();
    std::shared_ptr<MediaRequest> takeNext();
    MediaRequest::Answer attempt(MediaRequest& request);
    Result<void> startWorkerWhereNone();
    bool send(MediaRequest& request);
    void finish(const std::shared_ptr<MediaRequest>& request, MediaRequest::Answer answer);
    void cutOffCurrent();
    QString dropWorker();

    std::mutex m_mutex;
    std::condition_variable m_change;
    Queue m_properties;
    Queue m_thumbnails;
    std::shared_ptr<MediaRequest> m_current;
    bool m_isCutOff = false;
    bool m_isStopped = false;
    // Replaced by the thread alone, under the mutex; killed by others under the mutex.
    std::unique_ptr<WorkerProcess> m_worker;
    std::thread m_thread;
};

} // namespace reelsmith
