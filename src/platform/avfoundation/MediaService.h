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
#include <vector>

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

    mediaworker::Message m_question;
    mediaworker::Descriptor m_source;
    mediaworker::Descriptor m_output;
    std::promise<Answer> m_promise;
    std::shared_future<Answer> m_answer;
};

/// Answers questions about files, in the order in which they come, by way of long-lived workers, each of
/// which looks at one file at a time, is started when first needed and again after it died. Each answer comes
/// within 10 s of its turn. Any thread.
class MediaService {
public:
    /// The one for properties: with a worker of its own, so that no picture holds them up.
    static MediaService& properties();
    /// The one for pictures.
    static MediaService& pictures();

    /// A worker is ended when there was nothing to ask for so long: what it holds in memory, what it may do
    /// unasked, and what a file may have made of it.
    explicit MediaService(int workerCount, std::chrono::milliseconds idleLimit = std::chrono::seconds(30));
    ~MediaService();
    MediaService(const MediaService&) = delete;
    MediaService& operator=(const MediaService&) = delete;

    void ask(const std::shared_ptr<MediaRequest>& request);

    /// Nobody waits for the answer to this question any more; it comes at once, with what there is.
    void withdraw(const std::shared_ptr<MediaRequest>& request);

    /// Answers what is open, and whatever is asked from now on, with a failure, and ends the workers.
    void stop();

private:
    /// One worker, and the thread that talks to it.
    struct Lane {
        std::shared_ptr<MediaRequest> current;
        bool isCutOff = false;
        // Replaced by the lane's thread alone, under the mutex; killed by others under the mutex.
        std::unique_ptr<WorkerProcess> worker;
        std::thread thread;
    };

    void serve(Lane& lane);
    std::shared_ptr<MediaRequest> takeNext(Lane& lane);
    MediaRequest::Answer attempt(Lane& lane, MediaRequest& request);
    Result<void> startWorkerWhereNone(Lane& lane);
    void finish(Lane& lane, MediaRequest::Answer answer);
    QString dropWorker(Lane& lane);
    static bool send(Lane& lane, MediaRequest& request);
    static void cutOff(Lane& lane);

    const std::chrono::milliseconds m_idleLimit;
    std::mutex m_mutex;
    std::condition_variable m_change;
    std::deque<std::shared_ptr<MediaRequest>> m_waiting;
    std::vector<std::unique_ptr<Lane>> m_lanes;
    bool m_isStopped = false;
};

} // namespace reelsmith
