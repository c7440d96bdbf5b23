// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/ServiceConfiguration.h"

#include "platform/services/StateFile.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

class ServiceConfigurationTest : public testing::Test {
protected:
    void SetUp() override {
        qputenv("XDG_CONFIG_HOME", m_folder.filePath(u"user"_s).toUtf8());
        qputenv("XDG_CONFIG_DIRS", m_folder.filePath(u"system"_s).toUtf8());
    }
    void TearDown() override {
        for (const char* key :
             {"OFREP_ENDPOINT", "OFREP_HEADERS", "OFREP_TIMEOUT", "OTEL_EXPORTER_OTLP_ENDPOINT",
              "OTEL_EXPORTER_OTLP_LOGS_ENDPOINT", "OTEL_EXPORTER_OTLP_HEADERS"})
            qunsetenv(key);
        qputenv("XDG_CONFIG_HOME", m_configHome);
        qunsetenv("XDG_CONFIG_DIRS");
    }
    void write(const QString& place, const QByteArray& text) const {
        ASSERT_TRUE(StateFile(m_folder.filePath(place) + u"/reelsmith/services.ini"_s).replace(text));
    }

    const QTemporaryDir m_folder;
    const QByteArray m_configHome = qgetenv("XDG_CONFIG_HOME");
};

std::optional<QString> remoteConfigUrl() {
    const auto endpoint = ServiceConfiguration::read().remoteConfig;
    return endpoint ? std::optional(endpoint->url.toString()) : std::nullopt;
}

} // namespace

TEST_F(ServiceConfigurationTest, TheFirstPlaceThatNamesAKeyDecides) {
    EXPECT_EQ(remoteConfigUrl(), std::nullopt);
    write(u"system"_s, "OFREP_ENDPOINT=https://system\nOFREP_TIMEOUT=50\n");
    EXPECT_EQ(remoteConfigUrl(), u"https://system/ofrep/v1/evaluate/flags"_s);
    write(u"user"_s, "[General]\n# note=1\n; note=2\n OFREP_ENDPOINT = \"https://user/base/\" \n");
    EXPECT_EQ(remoteConfigUrl(), u"https://user/base/ofrep/v1/evaluate/flags"_s);
    EXPECT_EQ(ServiceConfiguration::read().remoteConfig->timeLimit, 50ms);
    qputenv("OFREP_ENDPOINT", "http://localhost:8016");
    EXPECT_EQ(remoteConfigUrl(), u"http://localhost:8016/ofrep/v1/evaluate/flags"_s);
    qputenv("OFREP_ENDPOINT", "");
    write(u"user"_s, "OFREP_ENDPOINT=\n");
    EXPECT_EQ(remoteConfigUrl(), std::nullopt);
}

TEST_F(ServiceConfigurationTest, AListOfHeadersComesThroughAFileAsItWasMeant) {
    write(u"user"_s, "OTEL_EXPORTER_OTLP_ENDPOINT=https://collector?a=b\n");
    EXPECT_EQ(ServiceConfiguration::read().measurement->url, QUrl(u"https://collector/v1/logs?a=b"_s));
    write(u"user"_s,
          "OTEL_EXPORTER_OTLP_LOGS_ENDPOINT=https://logs/as/it/is/\n"
          "OTEL_EXPORTER_OTLP_ENDPOINT=https://collector\n"
          "OTEL_EXPORTER_OTLP_HEADERS=Authorization=Basic%20dTpw==, x-list = a%2Cb%3Bc ,x-c=\\;\"\n");
    const ServiceHeaders headers{{"Authorization", "Basic dTpw=="}, {"x-list", "a,b;c"}, {"x-c", "\\;\""}};
    EXPECT_EQ(ServiceConfiguration::read().measurement,
              (ServiceConfiguration::Endpoint{QUrl(u"https://logs/as/it/is/"_s), headers}));
}

TEST_F(ServiceConfigurationTest, WhatCannotBeUsedIsAsNone) {
    for (const char* url :
         {"http://example.org", "http://127.0.0.1.example.org", "http://localhost.example.org",
          "ftp://localhost", "localhost:8016", "https://", "https://a b", "https://a#b", "?"}) {
        qputenv("OFREP_ENDPOINT", url);
        EXPECT_EQ(remoteConfigUrl(), std::nullopt) << url;
    }
    qputenv("OFREP_ENDPOINT", "http://[::1]:8016");
    for (const char* timeout : {"0", "-1", "10s", "1e3"}) {
        qputenv("OFREP_TIMEOUT", timeout);
        EXPECT_EQ(ServiceConfiguration::read().remoteConfig->timeLimit, 10s) << timeout;
    }
    for (const char* headers : {"no-value", "=x", "a b=c", "a=b%0D%0Ac: d", "a=b,c"}) {
        qputenv("OFREP_HEADERS", headers);
        EXPECT_EQ(ServiceConfiguration::read().remoteConfig->headers, ServiceHeaders()) << headers;
    }
}
