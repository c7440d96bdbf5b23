// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <functional>

namespace reelsmith {

/// Sends `call` and has `answered` called later, on the main thread, with the reply or the error message,
/// such as when there is no bus, no such service, or no answer for 20 s. Never if `context` is gone by then.
void callBus(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
             std::function<void(const QDBusMessage& reply)> answered);

} // namespace reelsmith
