// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <QMap>
#include <QString>
#include <optional>

namespace reelsmith {

/// What a configuration service has set: texts by key. A key without one is set to nothing.
using RemoteValues = QMap<QString, std::optional<QString>>;

/// The values for a file.
QJsonObject toJson(const RemoteValues& values);

/// The values out of such a file; none for anything else.
std::optional<RemoteValues> remoteValues(const QJsonValue& json);

} // namespace reelsmith
