// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <functional>

namespace reelsmith {

/// Questions about what a bus offers. Each answer comes later, on the main thread, unless `context` is gone
/// by then; without a bus it is no.
namespace busservices {

using Answer = std::function<void(bool isThere)>;

/// Whether a service runs or would be started when called.
void ask(const QDBusConnection& bus, const QString& service, QObject* context, Answer answer);

/// Whether the desktop portal has an interface, such as "FileChooser": it has those for which the desktop
/// brings a backend. Starts the portal.
void askForPortal(const QDBusConnection& bus, const QString& interface, QObject* context, Answer answer);

} // namespace busservices

} // namespace reelsmith
