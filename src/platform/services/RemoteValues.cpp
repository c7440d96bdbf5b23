// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/RemoteValues.h"

namespace reelsmith {

QJsonObject toJson(const RemoteValues& values) {
    QJsonObject object;
    for (const auto& [key, text] : values.asKeyValueRange())
        object.insert(key, text ? QJsonValue(*text) : QJsonValue(QJsonValue::Null));
    return object;
}

std::optional<RemoteValues> remoteValues(const QJsonValue& json) {
    if (!json.isObject())
        return std::nullopt;
    const QJsonObject object = json.toObject();
    RemoteValues values;
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        if (!entry->isString() && !entry->isNull())
            return std::nullopt;
        values.insert(entry.key(), entry->isString() ? std::optional(entry->toString()) : std::nullopt);
    }
    return values;
}

} // namespace reelsmith
