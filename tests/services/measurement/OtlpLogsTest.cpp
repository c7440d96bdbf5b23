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

namespace {

using Verdict = OtlpAnswer::Verdict;

struct SettingsCase {
    const char* key;
    QString text;
    MeasurementSettings expected;
};

UploadSchedule::Clock::time_point at(std::chrono::seconds time) {
    return UploadSchedule::Clock::time_point(time);
}

} // namespace

TEST(OtlpLogs, ABundleIsWrittenAsTheProtocolWantsIt) {
    const AnalyticsParameters property{{u"participating_tests"_s, u"|3|"_s}};
    const QList<StoredEvent> bundle{
        {1, {u"id1"_s, 1700000000123456789, u"converted_failure"_s, {{u"reason"_s, u"\"no\""_s}}}, property},
        {2, {u"id2"_s, 1700000001000000000, u"evaluated_app"_s, {{u"rating"_s, qint64{5}}}}, property},
        {3, {u"id3"_s, 1700000002000000000, u"shared_video"_s, {}}, {}}};
    const QByteArray expected = R"({"resourceLogs": [
        {"resource": {"attributes": [
            {"key": "service.name", "value": {"stringValue": "reelsmith"}},
            {"key": "service.version", "value": {"stringValue": "1.0"}},
            {"key": "service.instance.id", "value": {"stringValue": "me"}},
            {"key": "participating_tests", "value": {"stringValue": "|3|"}}]},
         "scopeLogs": [{"scope": {"name": "reelsmith", "version": "1.0"}, "logRecords": [
            {"timeUnixNano": "1700000000123456789", "observedTimeUnixNano": "1700000000123456789",
             "eventName": "converted_failure", "attributes": [
                {"key": "log.record.uid", "value": {"stringValue": "id1"}},
                {"key": "reason", "value": {"stringValue": "\"no\""}}]},
            {"timeUnixNano": "1700000001000000000", "observedTimeUnixNano": "1700000001000000000",
             "eventName": "evaluated_app", "attributes": [
                {"key": "log.record.uid", "value": {"stringValue": "id2"}},
                {"key": "rating", "value": {"intValue": "5"}}]}]}]},
        {"resource": {"attributes": [
            {"key": "service.name", "value": {"stringValue": "reelsmith"}},
            {"key": "service.version", "value": {"stringValue": "1.0"}},
            {"key": "service.instance.id", "value": {"stringValue": "me"}}]},
         "scopeLogs": [{"scope": {"name": "reelsmith", "version": "1.0"}, "logRecords": [
            {"timeUnixNano": "1700000002000000000", "observedTimeUnixNano": "1700000002000000000",
             "eventName": "shared_video", "attributes": [
                {"key": "log.record.uid", "value": {"stringValue": "id3"}}]}]}]}]})";
    const QByteArray body = otlpLogs(bundle, {u"reelsmith"_s, u"1.0"_s, u"me"_s});
    EXPECT_EQ(QJsonDocument::fromJson(body), QJsonDocument::fromJson(expected)) << body.constData();
}

TEST(OtlpLogs, AStatusDecidesWhatBecomesOfABundle) {
    const std::pair<int, Verdict> cases[] = {
        {200, Verdict::Accepted},   {204, Verdict::Accepted},   {302, Verdict::RetryLater},
        {429, Verdict::RetryLater}, {502, Verdict::RetryLater}, {503, Verdict::RetryLater},
        {504, Verdict::RetryLater}, {400, Verdict::Refused},    {401, Verdict::Refused},
        {404, Verdict::Refused},    {413, Verdict::Refused},    {500, Verdict::Refused},
        {501, Verdict::Refused},
    };
    for (const auto& [status, verdict] : cases)
        EXPECT_EQ(OtlpAnswer::of(ServiceAnswer{status}).verdict, verdict) << status;
    EXPECT_EQ(OtlpAnswer::of(tl::unexpected(ServiceError{u"gone"_s})).verdict, Verdict::RetryLater);
}

TEST(OtlpLogs, APartialSuccessNamesWhatWasRejected) {
    for (const char* count : {"\"2\"", "2"}) {
        const QByteArray body = QByteArray(R"({"partialSuccess": {"rejectedLogRecords": )") + count +
                                R"(, "errorMessage": "why"}})";
        const OtlpAnswer answer = OtlpAnswer::of(ServiceAnswer{200, {}, body});
        EXPECT_EQ(answer.verdict, Verdict::Accepted);
        EXPECT_EQ(answer.rejectedRecords, 2);
        EXPECT_EQ(answer.message, u"why"_s);
    }
}

TEST(UploadSchedule, TheNextUploadWaitsForTheIntervalOrTheRetry) {
    const UploadSchedule never;
    EXPECT_EQ(never.remaining(at(1000s), 3600s), 0s);
    const UploadSchedule done = UploadSchedule::afterSuccess(at(1000s));
    EXPECT_EQ(done.remaining(at(1600s), 3600s), 3000s);
    EXPECT_EQ(done.remaining(at(4600s), 3600s), 0s);
    EXPECT_EQ(done.remaining(at(900s), 3600s), 0s) << "the clock was set back";
    EXPECT_EQ(done.afterFailure(at(5000s), 90s, 30s, 0).remaining(at(5000s), 3600s), 90s);
    EXPECT_EQ(done.afterFailure(at(5000s), 0s, 30s, 0).remaining(at(5000s), 3600s), 30s);
    EXPECT_EQ(done.afterFailure(at(5000s), std::nullopt, 30s, 1).remaining(at(5000s), 3600s), 45s);

    UploadSchedule failing = done;
    std::vector<std::chrono::seconds> waits;
    for (int i = 0; i < 100; ++i) {
        failing = failing.afterFailure(at(5000s), std::nullopt, 30s, 0);
        waits.push_back(std::chrono::duration_cast<std::chrono::seconds>(failing.wait));
    }
    EXPECT_EQ((std::vector(waits.begin(), waits.begin() + 3)),
              (std::vector<std::chrono::seconds>{30s, 60s, 120s}));
    EXPECT_EQ(waits.back(), UploadSchedule::longestGrownWait);
}

TEST(MeasurementSettings, ComeFromTheRemoteConfiguration) {
    const char *enabled = "measurement_enabled", *interval = "measurement_upload_interval_seconds",
               *bundle = "measurement_max_bundle", *sampling = "measurement_sampling";
    const SettingsCase cases[] = {
        {"other", u"false"_s, {}},
        {enabled, u"false"_s, {.isEnabled = false}},
        {enabled, u"no"_s, {}},
        {interval, u"60"_s, {.uploadInterval = 60s}},
        {interval, u"60.0"_s, {.uploadInterval = 60s}},
        {interval, u"0"_s, {}},
        {interval, u"-1"_s, {}},
        {interval, u"1e300"_s, {}},
        {bundle, u"10"_s, {.maximumBundle = 10}},
        {bundle, u"101"_s, {}},
        {bundle, u"0"_s, {}},
        {sampling, u"0.25"_s, {.sampling = 0.25}},
        {sampling, u"0"_s, {.sampling = 0}},
        {sampling, u"1.5"_s, {}},
        {sampling, u"nan"_s, {}},
    };
    for (const auto& [key, text, expected] : cases) {
        InMemoryRemoteConfig remoteConfig;
        remoteConfig.setState({.activated = {{QString::fromLatin1(key), text}}});
        EXPECT_EQ(MeasurementSettings::read(remoteConfig), expected) << key << text.toStdString();
    }
}

TEST(MeasurementSettings, TheShareIsTheSameWheneverItIsDrawn) {
    int drawn = 0;
    for (int i = 0; i < 10000; ++i) {
        const QString id = MeasuredEvent::now(u"e"_s, {}).id;
        const bool isQuarter = MeasurementSettings{.sampling = 0.25}.isSampled(id);
        drawn += isQuarter ? 1 : 0;
        EXPECT_FALSE(MeasurementSettings{.sampling = 0}.isSampled(id));
        EXPECT_TRUE(MeasurementSettings{}.isSampled(id));
        EXPECT_TRUE(!isQuarter || MeasurementSettings{.sampling = 0.5}.isSampled(id));
    }
    EXPECT_NEAR(drawn, 2500, 300);
}
