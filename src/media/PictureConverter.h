// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Colour.h"
#include "media/Error.h"
#include "media/Handles.h"
#include "media/Orienter.h"
#include "media/PlanarScaler.h"
#include "media/ToneMapper.h"

#include <memory>
#include <optional>

namespace reelsmith::media {

/// Makes of every decoded picture what the encoder takes: 8-bit 4:2:0, limited range, SDR, of one size,
/// upright. Follows a source whose size, format or colours change on the way. One thread.
class PictureConverter {
public:
    /// `width` and `height`: of the result before it is turned; even.
    PictureConverter(int width, int height, Orientation orientation);
    ~PictureConverter();

    /// A frame as described, tagged with its colours, with the pts and duration of the one given.
    Result<FrameHandle> convert(FrameHandle frame);

private:
    struct Way;

    Result<void> choose(const AVFrame& frame);
    Result<FrameHandle> planarize(FrameHandle frame) const;

    int m_width;
    int m_height;
    Orientation m_orientation;
    std::unique_ptr<Way> m_way;
};

} // namespace reelsmith::media
