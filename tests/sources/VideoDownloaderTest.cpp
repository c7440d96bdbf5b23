// SPDX-License-Identifier: GPL-3.0-or-later
#include "sources/VideoDownloader.h"

#include "application/Support.h"
#include "fakes/WebServer.h"

#include "platform/foundation/OngoingWork.h"
#include "platform/foundation/URLs.h"
#include "platform/linux/network/NetworkHTTPClient.h"
#include "settings/UserSettings.h"

#include <QDir>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

/// What a screen is to a downloader.
class Owner : public QObject, public VideoDownloaderDelegate {
public:
    void didUpdateProgress(double fraction) override { fractions.append(fraction); }
    void didReceiveBytes(const DownloadProgress& progress) override { bytes.append(progress.receivedBytes); }

    QList<double> fractions;
    QList<qint64> bytes;
};

class Downloader : public ApplicationTest {
protected:
    static void SetUpTestSuite() { s_server = new WebServer; }
    static void TearDownTestSuite() { delete std::exchange(s_server, nullptr); }
    void SetUp() override {
        ASSERT_TRUE(s_server->isRunning());
        UserSettings::shared().setSendUsageData(true);
        HTTPClient::setShared(std::make_shared<NetworkHTTPClient>());
    }
    void TearDown() override { HTTPClient::setShared(nullptr); }

    static QUrl http(const QString& path) { return s_server->http(path); }

    QStringList events() const {
        QStringList names;
        for (const InMemoryAnalytics::Event& event : m_services.analytics->state().events)
            names.append(event.parameters ? event.name + u" with parameters"_s : event.name);
        return names;
    }
    /// The result, and what had been logged when it came.
    VideoDownloader::DownloadResult download(const QUrl& url) {
        std::optional<VideoDownloader::DownloadResult> result;
        const auto downloader = VideoDownloader::make(url);
        downloader->setDelegate(m_owner.get());
        downloader->download([&](const VideoDownloader::DownloadResult& ended) {
            EXPECT_TRUE(OngoingWork::isAny());
            m_eventsBefore = events();
            result = ended;
        });
        EXPECT_FALSE(result);
        EXPECT_TRUE(OngoingWork::isAny());
        EXPECT_TRUE(runLoopUntil([&] { return result.has_value(); }));
        EXPECT_FALSE(OngoingWork::isAny());
        return *result;
    }
    /// All files in the documents folder.
    static QStringList files() {
        QStringList found;
        const std::filesystem::path folder = filePath(FileSystem::shared().downloadsFolder()).parent_path();
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            if (!entry.is_directory())
                found.append(QString::fromStdString(entry.path().lexically_relative(folder)));
        }
        return found;
    }

    std::unique_ptr<Owner> m_owner = std::make_unique<Owner>();
    QStringList m_eventsBefore;

private:
    static inline WebServer* s_server = nullptr;
};

} // namespace

TEST_F(Downloader, AFileIsLoggedThenHandedOver) {
    const auto result = download(http(u"/body/100/clip.mp4?size=large#t=3"_s));
    ASSERT_TRUE(result);
    EXPECT_EQ(*result, appendingPathComponent(FileSystem::shared().downloadsFolder(), u"clip.mp4"_s));
    EXPECT_EQ(contents(*result).size(), 100);
    EXPECT_EQ(m_eventsBefore, QStringList{u"download_success"_s});
    EXPECT_EQ(events(), m_eventsBefore);
    EXPECT_EQ(m_owner->fractions, QList<double>{1});

    EXPECT_TRUE(download(http(u"/status/404/elsewhere/clip.mp4"_s)));
    EXPECT_EQ(contents(*result), "<html>not a video</html>");
    EXPECT_EQ(files(), QStringList{u"downloads/clip.mp4"_s});
}

TEST_F(Downloader, AFailureIsHandedOverThenLogged) {
    const auto result = download(http(u"/cut/100/clip.mp4"_s));
    ASSERT_FALSE(result);
    EXPECT_EQ(localizedDescription(result.error()),
              u"The operation couldn’t be completed. (VideoDownloader.DownloadError error 0.)"_s);
    EXPECT_EQ(m_eventsBefore, QStringList());
    EXPECT_EQ(events(), QStringList{u"download_failure"_s});
    EXPECT_EQ(files(), QStringList());
}

TEST_F(Downloader, WithoutConsentTheSameHappensUnlogged) {
    UserSettings::shared().setSendUsageData(false);
    EXPECT_TRUE(download(http(u"/body/1/clip.mp4"_s)));
    EXPECT_FALSE(download(http(u"/drop/clip.mp4"_s)));
    EXPECT_EQ(events(), QStringList());
}

TEST_F(Downloader, WithoutAnHTTPClientEveryDownloadFails) {
    HTTPClient::setShared(nullptr);
    EXPECT_FALSE(download(http(u"/body/1/clip.mp4"_s)));
}

TEST_F(Downloader, OfAnUnknownLengthOnlyBytesAreReported) {
    EXPECT_TRUE(download(http(u"/chunked/5000/clip.mp4"_s)));
    EXPECT_EQ(m_owner->fractions, QList<double>());
    EXPECT_EQ(m_owner->bytes.last(), 5000);
    m_owner.reset();
    EXPECT_TRUE(download(http(u"/body/5000/clip.mp4"_s)));
}

TEST_F(Downloader, TheFileIsNamedAsTheLastComponentOrThereIsNone) {
    const std::map<QString, QString> names{{u"plain"_s, u"plain"_s},
                                           {u"a%20b%3Fc%25.mov"_s, u"a b?c%.mov"_s},
                                           {u"sub/%C3%A9.mov"_s, u"é.mov"_s},
                                           {u"..mov"_s, u"..mov"_s},
                                           {QString(255, u'x'), QString(255, u'x')}};
    for (const auto& [component, name] : names) {
        SCOPED_TRACE(component.toStdString());
        const auto result = download(http(u"/body/1/"_s + component));
        EXPECT_EQ(files(), QStringList{u"downloads/"_s + name});
        FileSystem::shared().deleteVideo(result.value());
    }
    for (const QString& component : {u""_s, u"."_s, u".."_s, u"%2E%2e"_s, u"..%2Fx"_s, u"a%2Fb"_s,
                                     u"%2Ftmp%2Fx"_s, u"x%00.mov"_s, QString(256, u'x')}) {
        SCOPED_TRACE(component.toStdString());
        EXPECT_FALSE(download(http(u"/body/1/"_s + component)));
        EXPECT_EQ(files(), QStringList());
    }
}

TEST_F(Downloader, ItsBackgroundTaskOutlastsIt) {
    struct CountingInhibitor : Inhibitor {
        explicit CountingInhibitor(int& holds) : m_holds(holds) {}
        void hold() override { ++m_holds; }
        void letGo() override { --m_holds; }
        int& m_holds;
    };
    int holds = 0;
    UIApplication::shared().setSleepInhibitor(std::make_unique<CountingInhibitor>(holds));
    EXPECT_TRUE(download(http(u"/body/1/clip.mp4"_s)));
    EXPECT_EQ(holds, 1);
    UIApplication::shared().setSleepInhibitor(std::make_unique<Inhibitor>());
}
