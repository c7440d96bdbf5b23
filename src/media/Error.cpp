// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Error.h"

#include <array>
#include <utility>

extern "C" {
#include <libavutil/error.h>
}

namespace reelsmith::media {

tl::unexpected<Error> failure(ErrorCode code, std::string text) {
    return tl::unexpected(Error{code, std::move(text)});
}

tl::unexpected<Error> ffmpegFailure(ErrorCode code, const std::string& what, int averror) {
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
    av_strerror(averror, text.data(), text.size());
    return failure(averror == AVERROR(ENOMEM) ? ErrorCode::OutOfMemory : code, what + ": " + text.data());
}

} // namespace reelsmith::media
