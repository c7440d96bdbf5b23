// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/NetworkServices.h"

#include "platform/services/StateFile.h"

#include <QDir>
#include <QFile>
#include <future>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

int socketCount() {
    const QDir descriptors(u"/proc/self/fd"_s);
    int count = 0;
    for (const QString& name : descriptors.entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot))
        count += QFile::symLinkTarget(descriptors.filePath(name)).contains(u"socket:"_s);
    return count;
}

} // namespace

TEST(NetworkServices, WithNothingConfiguredNoSocketIsOpened) {
    const int before = socketCount();
    const NetworkServices services;
    EXPECT_FALSE(services.backends().remoteConfig);
    Services::configure(services.backends());
    std::promise<RemoteConfigFetchStatus> told;
    Services::remoteConfig()->fetchWithExpirationDuration(
        std::chrono::hours(1),
        [&told](RemoteConfigFetchStatus status, const auto&) { told.set_value(status); });
    EXPECT_EQ(told.get_future().get(), RemoteConfigFetchStatus::Failure);
    Services::analytics()->setUserPropertyString(u"|3|"_s, u"participating_tests"_s);
    Services::analytics()->logEventWithName(u"converted_success"_s, {});
    EXPECT_EQ(socketCount(), before);
}
