// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/NetworkServices.h"

#include <atomic>
#include <future>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

std::atomic<int> socketCount = 0;

} // namespace

// In the place of the system's, for this program and all its libraries.
extern "C" int socket(int domain, int type, int protocol) noexcept {
    ++socketCount;
    return static_cast<int>(::syscall(SYS_socket, domain, type, protocol));
}

TEST(NetworkServices, OnlyWhatIsConfiguredOpensASocket) {
    for (const bool isConfigured : {false, true}) {
        socketCount = 0;
        if (isConfigured)
            qputenv("OFREP_ENDPOINT", "http://127.0.0.1:1");
        {
            const NetworkServices services;
            Services::configure(services.backends());
            Services::analytics()->setUserPropertyString(u"|3|"_s, u"participating_tests"_s);
            Services::analytics()->logEventWithName(u"converted_success"_s, {});
            std::promise<RemoteConfigFetchStatus> told;
            Services::remoteConfig()->fetchWithExpirationDuration(
                std::chrono::hours(1),
                [&told](RemoteConfigFetchStatus status, const auto&) { told.set_value(status); });
            EXPECT_EQ(told.get_future().get(), RemoteConfigFetchStatus::Failure);
        }
        EXPECT_EQ(socketCount > 0, isConfigured);
        qunsetenv("OFREP_ENDPOINT");
    }
}
