// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any bytes as a video to export, with each preset in turn.
#include "Target.h"
#include "media/ExportPlan.h"
#include "media/Exporter.h"
#include "media/Probe.h"
#include "media/Source.h"
#include "media/TrackChoice.h"

#include <mutex>
#include <new>

extern "C" {
#include <libavutil/log.h>
}

using namespace reelsmith;
using namespace media;

namespace {

class Progress {
public:
    void take(double fraction) {
        const std::lock_guard lock(m_mutex);
        fuzz::require(fraction >= m_last && fraction < 1, "progress grows, up to 1");
        m_last = fraction;
    }

private:
    std::mutex m_mutex;
    double m_last = 0;
};

void checkResult(int output) {
    const auto result = Source::open(output, Source::Detail::Decoded);
    fuzz::require(result.has_value(), "a result can be opened");
    const MediaInfo info = probe(**result);
    const auto again = planExport(info, Preset::Medium, {});
    fuzz::require(again.has_value(), "a result can be exported once more");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    av_log_set_level(AV_LOG_QUIET);
    const auto source = fuzz::fileWith(data, size);
    const auto output = fuzz::fileWith(nullptr, 0);
    const auto preset = static_cast<Preset>(size % presetCount);
    try {
        Progress progress;
        const auto done = exportVideo({source.number(), output.number(), preset, {"deu"}},
                                      [&progress](double fraction) { progress.take(fraction); });
        if (done)
            checkResult(output.number());
    } catch (const std::bad_alloc&) {
        return 0; // the process ends, but as it should
    }
    return 0;
}
