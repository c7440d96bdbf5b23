// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any bytes as what a configuration service or a collector answers, and as what was kept of such answers. The
// first line is the status and the headers' value, the rest the body.
#include "RemoteSettings/RemoteValue.h"
#include "Target.h"
#include "platform/services/ExactJson.h"
#include "platform/services/FetchedConfig.h"
#include "platform/services/Ofrep.h"
#include "platform/services/RetryTime.h"
#include "platform/services/measurement/MeasurementSettings.h"
#include "platform/services/measurement/OtlpLogs.h"

#include "fakes/InMemoryRemoteConfig.h"

using namespace reelsmith;

namespace {

const QDateTime now(QDate(2026, 5, 4), QTime(3, 2, 1), Qt::UTC);

ServiceAnswer answerOf(const QByteArray& bytes) {
    const qsizetype lineEnd = bytes.indexOf('\n');
    const QByteArray line = bytes.left(lineEnd);
    const qsizetype blank = line.indexOf(' ');
    const QByteArray value = line.sliced(blank + 1);
    return {line.left(blank).toInt(), {{"Retry-After", value}, {"ETag", value}}, bytes.sliced(lineEnd + 1)};
}

void checkKept(const FetchedConfig& config) {
    const QByteArray file = config.toJson();
    fuzz::require(FetchedConfig::fromJson(file).toJson() == file, "what is kept is read back as it was");
}

void use(const RemoteValues& values) {
    InMemoryRemoteConfig service;
    service.setState({.activated = values});
    const MeasurementSettings settings = MeasurementSettings::read(service);
    fuzz::require(settings.uploadInterval.count() >= 1 && settings.maximumBundle >= 1 &&
                      settings.maximumBundle <= 100 && settings.sampling >= 0 && settings.sampling <= 1,
                  "settings from afar stay within their bounds");
    for (const auto& value : values) {
        parseBoolean(value.value_or(QString()));
        parseInteger(value.value_or(QString()));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const ServiceAnswer answer = answerOf(bytes);

    FetchedConfig config = FetchedConfig::fromJson(answer.body);
    checkKept(config);
    if (config.take(answer, now))
        checkKept(config);
    fuzz::require(!config.isThrottled(now.addDays(8)) || answer.status != 429,
                  "a service is asked again within a week");
    use(config.values().value_or(RemoteValues()));

    const OtlpAnswer verdict = OtlpAnswer::of(answer);
    fuzz::require(verdict.verdict == OtlpAnswer::Verdict::Accepted || verdict.rejectedRecords == 0,
                  "only a bundle that was taken has rejected records");

    const AnalyticsParameters parameters = parametersOfText(QString::fromUtf8(answer.body));
    fuzz::require(parametersOfText(textOfParameters(parameters)) == parameters,
                  "an event's parameters are read back as they were");
    return 0;
}
