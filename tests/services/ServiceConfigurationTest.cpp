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
        for (const char* key : {"OFREP_ENDPOINT", "OFREP_HEADERS", "OFREP_TIMEOUT", "XDG_CONFIG_DIRS"})
            qunsetenv(key);
        qputenv("XDG_CONFIG_HOME", m_configHome);
    }
    void write(const QString& place, const QByteArray& text) const {
        ASSERT_TRUE(StateFile(m_folder.filePath(place) + u"/reelsmith/services.ini"_s).replace(text));
    }

    const QTemporaryDir m_folder;
    const QByteArray m_configHome = qgetenv("XDG_CONFIG_HOME");
};

ServiceConfiguration::Endpoint remoteConfig() {
    return ServiceConfiguration::read().remoteConfig.value_or(ServiceConfiguration::Endpoint());
}

// Of the server, or of none.
QString host() {
    return remoteConfig().url.host();
}

} // namespace

TEST_F(ServiceConfigurationTest, TheFirstPlaceThatNamesAKeyDecides) {
    EXPECT_EQ(host(), u""_s);
    write(u"system"_s, "OFREP_ENDPOINT=https://system\nOFREP_TIMEOUT=50\n");
    EXPECT_EQ(host(), u"system"_s);
    write(u"user"_s, "[General]\n# note=1\n; note=2\n OFREP_ENDPOINT = \"https://user/base/\" \n");
    EXPECT_EQ(remoteConfig().url, QUrl(u"https://user/base/ofrep/v1/evaluate/flags"_s));
    EXPECT_EQ(remoteConfig().timeLimit, 50ms);
    qputenv("OFREP_ENDPOINT", "http://localhost:8016");
    EXPECT_EQ(host(), u"localhost"_s);
    qputenv("OFREP_ENDPOINT", "");
    write(u"user"_s, "OFREP_ENDPOINT=\n");
    EXPECT_EQ(host(), u""_s);
}

TEST_F(ServiceConfigurationTest, AListOfHeadersComesThroughAFileAsItWasMeant) {
    const QByteArray base = "OTEL_EXPORTER_OTLP_ENDPOINT=https://collector?a=b\n";
    write(u"user"_s, base);
    EXPECT_EQ(ServiceConfiguration::read().measurement->url, QUrl(u"https://collector/v1/logs?a=b"_s));
    write(u"user"_s, base + "OTEL_EXPORTER_OTLP_LOGS_ENDPOINT=https://logs/as/it/is/\n"
                            "OTEL_EXPORTER_OTLP_HEADERS=a=Basic%20dTpw==, x-b = a%2Cb%3Bc ,x-c=\\;\"\n");
    const ServiceHeaders headers{{"a", "Basic dTpw=="}, {"x-b", "a,b;c"}, {"x-c", "\\;\""}};
    EXPECT_EQ(ServiceConfiguration::read().measurement,
              (ServiceConfiguration::Endpoint{QUrl(u"https://logs/as/it/is/"_s), headers}));
}

TEST_F(ServiceConfigurationTest, WhatCannotBeUsedIsAsNone) {
    for (const char* url :
         {"http://example.org", "http://127.0.0.1.example.org", "http://localhost.example.org",
          "ftp://localhost", "localhost:8016", "https://", "https://a b", "https://a#b"}) {
        qputenv("OFREP_ENDPOINT", url);
        EXPECT_EQ(host(), u""_s) << url;
    }
    qputenv("OFREP_ENDPOINT", "http://[::1]:8016");
    for (const char* text : {"0", "-1", "10s", "1e3", "no-value", "=x", "a b=c", "a=b%0D%0Ac: d", "a=b,c"}) {
        qputenv("OFREP_TIMEOUT", text);
        qputenv("OFREP_HEADERS", text);
        EXPECT_EQ(remoteConfig(), (ServiceConfiguration::Endpoint{remoteConfig().url})) << text;
    }
}
