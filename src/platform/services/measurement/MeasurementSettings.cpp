// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/MeasurementSettings.h"

#include <QUuid>
#include <cmath>
#include <limits>

namespace reelsmith {

namespace {

constexpr double mostSeconds = 1e9;
constexpr double mostEventsABundle = 100;

QString text(const RemoteConfig& remoteConfig, const char* key) {
    return remoteConfig.stringValueForKey(QLatin1StringView(key)).value_or(QString()).toLower();
}

bool flag(const QString& text, bool otherwise) {
    if (text == QLatin1StringView("true") || text == QLatin1StringView("1"))
        return true;
    if (text == QLatin1StringView("false") || text == QLatin1StringView("0"))
        return false;
    return otherwise;
}

double number(const QString& text, double least, double most, double otherwise) {
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    return isNumber && value >= least && value <= most ? value : otherwise;
}

// A number without a fraction: some servers know no others than floating ones.
qint64 count(const QString& text, double most, qint64 otherwise) {
    const double value = number(text, 1, most, static_cast<double>(otherwise));
    return value == std::floor(value) ? static_cast<qint64>(value) : otherwise;
}

} // namespace

MeasurementSettings MeasurementSettings::read(const RemoteConfig& remoteConfig) {
    const MeasurementSettings defaults;
    return {flag(text(remoteConfig, "measurement_enabled"), defaults.isEnabled),
            std::chrono::seconds(count(text(remoteConfig, "measurement_upload_interval_seconds"), mostSeconds,
                                       defaults.uploadInterval.count())),
            static_cast<int>(count(text(remoteConfig, "measurement_max_bundle"), mostEventsABundle,
                                   defaults.maximumBundle)),
            number(text(remoteConfig, "measurement_sampling"), 0, 1, defaults.sampling)};
}

// The first 32 bits of a random UUID are random themselves.
bool MeasurementSettings::isSampled(const QString& eventId) const {
    constexpr double draws = static_cast<double>(std::numeric_limits<quint32>::max()) + 1;
    return static_cast<double>(QUuid::fromString(eventId).data1) / draws < sampling;
}

} // namespace reelsmith
