// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/bus/BusCall.h"

#include <QCoreApplication>
#include <QDBusPendingCallWatcher>
#include <chrono>
#include <utility>

namespace reelsmith {

namespace {

// A service that has to be started first takes its time on a phone.
constexpr std::chrono::milliseconds answerLimit = std::chrono::seconds(20);

} // namespace

void callBus(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
             std::function<void(const QDBusMessage& reply)> answered) {
    const int limit = static_cast<int>(answerLimit.count());
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, limit), QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, &QObject::deleteLater);
    QObject::connect(
        watcher, &QDBusPendingCallWatcher::finished, context,
        [answered = std::move(answered)](QDBusPendingCallWatcher* done) { answered(done->reply()); });
}

} // namespace reelsmith
