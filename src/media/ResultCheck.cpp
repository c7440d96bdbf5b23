// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ResultCheck.h"

#include "media/BoxWalk.h"
#include "media/Source.h"

#include <string>

namespace reelsmith::media {

namespace {

/// Whether "moov" comes before "mdat" among the file's top-level boxes.
bool isIndexInFront(int descriptor, std::int64_t sizeBytes) {
    bool isInFront = false;
    walkBoxes(descriptor, 0, sizeBytes, [&isInFront](const Box& box) {
        isInFront = box.type == "moov";
        return !isInFront && box.type != "mdat";
    });
    return isInFront;
}

} // namespace

Result<void> checkResult(int descriptor, std::int64_t pictureCount) {
    if (pictureCount <= 0)
        return failure(ErrorCode::InvalidSource, "No picture could be decoded");
    auto result = Source::open(descriptor, Source::Detail::Headers);
    if (!result)
        return failure(ErrorCode::WriteFailed, "The result cannot be opened: " + result.error().text);
    if (!isIndexInFront(descriptor, (*result)->sizeBytes()))
        return failure(ErrorCode::WriteFailed, "The result's index does not stand in front");
    const AVFormatContext* context = (*result)->context();
    for (unsigned i = 0; i < context->nb_streams; ++i) {
        const AVStream* stream = context->streams[i];
        if (stream->codecpar->codec_type != AVMEDIA_TYPE_VIDEO)
            continue;
        if (stream->nb_frames == pictureCount)
            return {};
        return failure(ErrorCode::WriteFailed, "The result lists " + std::to_string(stream->nb_frames) +
                                                   " of " + std::to_string(pictureCount) + " pictures");
    }
    return failure(ErrorCode::WriteFailed, "The result has no picture");
}

} // namespace reelsmith::media
