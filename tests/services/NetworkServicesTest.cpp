// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/NetworkServices.h"

#include "platform/services/StateFile.h"
#include "platform/services/measurement/EventDatabase.h"

#include "fakes/RunLoop.h"

#include <atomic>
#include <future>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;
using namespace std::string_literals;

namespace {

std::atomic<int> socketCount = 0;

} // namespace

// In the place of the system's, for this program and all its libraries.
extern "C" int socket(int domain, int type, int protocol) noexcept {
    ++socketCount;
    return static_cast<int>(::syscall(SYS_socket, domain, type, protocol));
}

TEST(NetworkServices, OnlyWhatIsConfiguredOpensASocket) {
    for (const char* endpoint : {"NONE", "OTEL_EXPORTER_OTLP_ENDPOINT", "OFREP_ENDPOINT"}) {
        SCOPED_TRACE(endpoint);
        const bool isConfigured = endpoint != "NONE"s;
        qputenv(endpoint, "http://127.0.0.1:1");
        socketCount = 0;
        {
            const NetworkServices services;
            Services::configure(services.backends());
            Services::analytics()->logEventWithName(u"converted_success"_s, {});
            LossTally tally;
            EventDatabase database(StateFile::folder() + u"/measurement"_s, tally);
            EXPECT_TRUE(runLoopUntil([&database] { return !database.oldest(1).isEmpty(); }));
            std::promise<RemoteConfigFetchStatus> told;
            Services::remoteConfig()->fetchWithExpirationDuration(
                std::chrono::hours(1),
                [&told](RemoteConfigFetchStatus status, const auto&) { told.set_value(status); });
            EXPECT_EQ(told.get_future().get(), RemoteConfigFetchStatus::Failure);
            EXPECT_TRUE(!isConfigured || runLoopUntil([] { return socketCount > 0; }));
        }
        EXPECT_EQ(socketCount > 0, isConfigured);
        qunsetenv(endpoint);
    }
}
