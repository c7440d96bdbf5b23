// SPDX-License-Identifier: GPL-3.0-or-later
//
// reelsmith-media-worker: reads videos for the application, in a process that can reach nothing but the
// descriptors it is sent. Started with its end of the channel as descriptor 3 and what it is for ("inspect"
// or "export").
#include "mediaworker/Channel.h"
#include "mediaworker/Lockdown.h"
#include "mediaworker/Service.h"

#include <cstdio>
#include <cstring>
#include <exception>
#include <poll.h>
#include <thread>
#include <unistd.h>

extern "C" {
#include <libavutil/log.h>
}

namespace {

using namespace reelsmith::mediaworker;

constexpr int channelDescriptor = 3;
constexpr std::uint64_t gibibyte = 1ULL << 30;

/// Nobody waits for this process's work once the application is gone.
void endWithTheApplication() {
    std::thread([] {
        pollfd peer{channelDescriptor, POLLRDHUP, 0};
        while (::poll(&peer, 1, -1) < 0)
            continue;
        ::_exit(0);
    }).detach();
}

} // namespace

int main(int argumentCount, char** arguments) {
    const bool isExport = argumentCount == 2 && std::strcmp(arguments[1], "export") == 0;
    const Lockdown lockdown = lockDown({isExport ? 3 * gibibyte : gibibyte});
    if (!lockdown.isFiltered) {
        std::fprintf(stderr, "%s\n", lockdown.text.c_str());
        return 1;
    }
    av_log_set_level(AV_LOG_QUIET);
    Channel channel{Descriptor(channelDescriptor)};
    try {
        endWithTheApplication();
        Service(channel).run();
    } catch (const std::exception&) {
        // Neither memory nor threads are without end.
        ::_exit(2);
    }
    // Nothing is left to tidy up, and a helper thread may still run.
    ::_exit(0);
}
