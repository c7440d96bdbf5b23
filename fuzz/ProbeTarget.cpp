// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any bytes as a video that a worker is to describe and to draw a picture of.
#include "Target.h"
#include "mediaworker/Service.h"

#include <new>
#include <sys/socket.h>

extern "C" {
#include <libavutil/log.h>
}

using namespace reelsmith;
using namespace mediaworker;

namespace {

constexpr int side = 200;

template<typename Answer>
Answer await(Channel& channel) {
    Letter letter;
    const auto status = channel.receive(letter, Channel::Timeout::zero());
    fuzz::require(status == Channel::Status::Received, "the application understands each answer");
    fuzz::require(std::holds_alternative<Answer>(letter.message), "the answer is to the question");
    return std::get<Answer>(letter.message);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    av_log_set_level(AV_LOG_QUIET);
    const Descriptor source = fuzz::fileWith(data, size);
    const Descriptor canvas = fuzz::fileWith(nullptr, 0);
    auto [application, worker] = Channel::makePair();
    application.send(ProbeRequest{}, {source.number()});
    application.send(ThumbnailRequest{{2, 30}, side, side}, {source.number(), canvas.number()});
    ::shutdown(application.descriptor(), SHUT_WR);
    try {
        Service(worker).run();
    } catch (const std::bad_alloc&) {
        return 0; // the process ends, but as it should
    }
    const auto properties = await<AssetProperties>(application);
    fuzz::require(properties.isPlayable == properties.problem.empty(), "what cannot be played has a problem");
    const auto picture = await<ThumbnailReply>(application);
    fuzz::require(picture.width <= side && picture.height <= side, "the picture is within its bounds");
    fuzz::require((picture.width > 0 && picture.height > 0) == picture.problem.empty(),
                  "no picture is a problem");
    return 0;
}
