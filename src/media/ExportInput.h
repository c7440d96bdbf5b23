// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"
#include "media/ExportPlan.h"
#include "media/MediaInfo.h"
#include "media/Source.h"

#include <memory>

namespace reelsmith::media {

struct ExportJob;

/// A source, opened as its export needs it, and what is to be made of it.
struct ExportInput {
    std::unique_ptr<Source> source;
    MediaInfo info;
    ExportPlan plan;
};

/// Fails where the source is no video or there is nothing to be made of it. Where all that will be in the
/// result stands in the source byte by byte, the packets are not fetched.
Result<ExportInput> openInput(const ExportJob& job);

} // namespace reelsmith::media
