// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/OtlpLogs.h"

#include "platform/services/measurement/MeasurementSettings.h"
#include "platform/services/measurement/UploadSchedule.h"

#include "fakes/InMemoryRemoteConfig.h"

#include <QJsonDocument>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST(OtlpLogs, ABundleIsWrittenAsTheProtocolWantsIt) {
    const QList<StoredEvent> bundle{
        {1, {u"id1"_s, 1700000000123456789, u"a"_s, {{u"reason"_s, u"\"no\""_s}}}, {{u"p"_s, u"|3|"_s}}},
        {2, {u"id2"_s, 1700000001000000000, u"b"_s, {{u"rating"_s, qint64{5}}}}, {{u"p"_s, u"|3|"_s}}},
        {3, {u"id3"_s, 1700000002000000000, u"c"_s, {}}, {}}};
    const QByteArray expected = R"({"resourceLogs": [
        {"resource": {"attributes": [{"key": "service.name", "value": {"stringValue": "reelsmith"}},
                                     {"key": "service.version", "value": {"stringValue": "1.0"}},
                                     {"key": "service.instance.id", "value": {"stringValue": "me"}},
                                     {"key": "p", "value": {"stringValue": "|3|"}}]},
         "scopeLogs": [{"scope": {"name": "reelsmith", "version": "1.0"}, "logRecords": [
            {"timeUnixNano": "1700000000123456789", "observedTimeUnixNano": "1700000000123456789", "eventName": "a",
             "attributes": [{"key": "log.record.uid", "value": {"stringValue": "id1"}},
                            {"key": "reason", "value": {"stringValue": "\"no\""}}]},
            {"timeUnixNano": "1700000001000000000", "observedTimeUnixNano": "1700000001000000000", "eventName": "b",
             "attributes": [{"key": "log.record.uid", "value": {"stringValue": "id2"}},
                            {"key": "rating", "value": {"intValue": "5"}}]}]}]},
        {"resource": {"attributes": [{"key": "service.name", "value": {"stringValue": "reelsmith"}},
                                     {"key": "service.version", "value": {"stringValue": "1.0"}},
                                     {"key": "service.instance.id", "value": {"stringValue": "me"}}]},
         "scopeLogs": [{"scope": {"name": "reelsmith", "version": "1.0"}, "logRecords": [
            {"timeUnixNano": "1700000002000000000", "observedTimeUnixNano": "1700000002000000000", "eventName": "c",
             "attributes": [{"key": "log.record.uid", "value": {"stringValue": "id3"}}]}]}]}]})";
    const QByteArray body = otlpLogs(bundle, {u"reelsmith"_s, u"1.0"_s, u"me"_s});
    EXPECT_EQ(QJsonDocument::fromJson(body), QJsonDocument::fromJson(expected)) << body.constData();
}

TEST(UploadSchedule, TheNextUploadWaitsForTheIntervalOrTheRetry) {
    const auto at = [](std::chrono::seconds time) { return UploadSchedule::Clock::time_point(time); };
    UploadSchedule schedule = UploadSchedule::afterSuccess(at(1000s));
    EXPECT_EQ(schedule.remaining(at(1600s), 3600s), 3000s);
    EXPECT_EQ(schedule.remaining(at(900s), 3600s), 0s) << "the clock was set back";
    EXPECT_EQ(schedule.afterFailure(at(5000s), 0s, 30s, 0).remaining(at(5000s), 3600s), 30s);
    EXPECT_EQ(schedule.afterFailure(at(5000s), {}, 30s, 1).remaining(at(5000s), 3600s), 45s);
    for (const auto wait : {30s, 60s, 120s, 240s}) {
        schedule = schedule.afterFailure(at(5000s), {}, 30s, 0);
        EXPECT_EQ(schedule.wait, wait);
    }
    schedule.failures = 100;
    EXPECT_EQ(schedule.afterFailure(at(5000s), {}, 30s, 0).wait, UploadSchedule::longestGrownWait);
}

TEST(MeasurementSettings, ComeFromTheRemoteConfiguration) {
    const QString enabled = u"measurement_enabled"_s, interval = u"measurement_upload_interval_seconds"_s,
                  bundle = u"measurement_max_bundle"_s, sampling = u"measurement_sampling"_s;
    const std::pair<InMemoryRemoteConfig::Values, MeasurementSettings> cases[] = {
        {{}, {true, 3600s, 100, 1.0}},
        {{{enabled, u"false"_s}, {interval, u"60"_s}, {bundle, u"10"_s}, {sampling, u"0.25"_s}},
         {false, 60s, 10, 0.25}},
        {{{enabled, u"0"_s}, {interval, u"60.0"_s}, {bundle, u"1"_s}, {sampling, u"0"_s}},
         {false, 60s, 1, 0}},
        {{{enabled, u"no"_s}, {interval, u"0"_s}, {bundle, u"0"_s}, {sampling, u"-1"_s}}, {}},
        {{{enabled, {}}, {interval, u"1e300"_s}, {bundle, u"101"_s}, {sampling, u"nan"_s}}, {}},
    };
    for (const auto& [values, expected] : cases) {
        InMemoryRemoteConfig remoteConfig;
        remoteConfig.setState({.activated = values});
        EXPECT_EQ(MeasurementSettings::read(remoteConfig), expected) << values.value(enabled)->toStdString();
    }
}

TEST(MeasurementSettings, TheShareIsDrawnByTheId) {
    int drawn = 0;
    for (int i = 0; i < 10000; ++i)
        drawn += MeasurementSettings{.sampling = 0.25}.isSampled(MeasuredEvent::now(u"e"_s, {}).id) ? 1 : 0;
    EXPECT_NEAR(drawn, 2500, 300); // more than six deviations
}
