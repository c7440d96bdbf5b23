// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <tl/expected.hpp>

namespace reelsmith::media {

/// What a caller can tell apart; the text beside it is for the log.
enum class ErrorCode {
    InvalidSource, ///< not a video that this engine reads: wrong type, damaged beyond use, no picture
    Encrypted,     ///< protected by a key that nobody has here
    Unsupported,   ///< a video, but of a kind that has no decoder or no honest conversion
    WriteFailed,   ///< the output could not be written or did not pass its check
    OutOfMemory,
    Internal, ///< a library refused what should have worked
};

struct Error {
    ErrorCode code = ErrorCode::Internal;
    std::string text;
};

template<typename T>
using Result = tl::expected<T, Error>;

/// An error as a value to return from a function that yields a Result.
tl::unexpected<Error> failure(ErrorCode code, std::string text);

/// The same for a negative FFmpeg return value: "WHAT: what FFmpeg says of it".
/// ENOMEM becomes OutOfMemory whatever `code` says.
tl::unexpected<Error> ffmpegFailure(ErrorCode code, const std::string& what, int averror);

} // namespace reelsmith::media
