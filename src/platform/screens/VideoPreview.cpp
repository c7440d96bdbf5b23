// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/VideoPreview.h"

#include "platform/avfoundation/AVAssetImageGenerator.h"
#include "platform/foundation/ClockText.h"
#include "platform/foundation/DispatchQueue.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <mutex>
#include <utility>

namespace reelsmith {

namespace {

// Enough for a tile to be filled by the shorter side of a wide picture.
constexpr QSize largestPicture{480, 480};
constexpr CMTime nearTheStart{1, 2};

VideoPreview::Facts factsOf(const QUrl& url, const std::stop_token& stop) {
    const AVAsset asset(url);
    VideoPreview::Facts facts{{}, asset.duration().seconds()};
    if (stop.stop_requested())
        return facts;
    AVAssetImageGenerator generator(asset);
    generator.appliesPreferredTrackTransform = true;
    generator.maximumSize = largestPicture;
    if (const auto image = generator.copyCGImage(nearTheStart))
        facts.picture = UIImage(*image);
    return facts;
}

/// Looks at one video after another: one media worker reads the properties of all.
class PreviewQueue {
public:
    using Work = std::function<void()>;

    static PreviewQueue& shared() {
        static PreviewQueue queue;
        return queue;
    }

    void add(Work work) {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(std::move(work));
        if (!std::exchange(m_isWorking, true))
            DispatchQueue::global(QualityOfService::UserInitiated).async([this] { workOff(); });
    }

private:
    void workOff() {
        while (const Work work = takeNext())
            work();
    }

    Work takeNext() {
        const std::lock_guard lock(m_mutex);
        m_isWorking = !m_waiting.empty();
        if (!m_isWorking)
            return {};
        Work next = std::move(m_waiting.front());
        m_waiting.pop_front();
        return next;
    }

    std::mutex m_mutex;
    std::deque<Work> m_waiting;
    bool m_isWorking = false;
};

} // namespace

VideoPreview::VideoPreview(const QUrl& url, Completion completion) {
    PreviewQueue::shared().add([url, stop = m_stop.get_token(), completion = std::move(completion)] {
        if (stop.stop_requested())
            return;
        const Facts facts = factsOf(url, stop);
        DispatchQueue::main().async([facts, stop, completion] {
            if (!stop.stop_requested())
                completion(facts);
        });
    });
}

QString VideoPreview::durationText(double seconds, int minuteDigits) {
    if (seconds <= 0)
        return {};
    // What is shorter than a second still lasts.
    const auto whole = static_cast<qint64>(std::max(std::floor(seconds), 1.0));
    return clockText(whole, minuteDigits);
}

} // namespace reelsmith
