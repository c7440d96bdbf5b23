// SPDX-License-Identifier: GPL-3.0-or-later
#include "sources/VideoDownloader.h"

#include "application/Support.h"
#include "fakes/WebServer.h"

#include "platform/foundation/OngoingWork.h"
#include "platform/foundation/URLs.h"
#include "platform/linux/network/NetworkHTTPClient.h"
#include "settings/UserSettings.h"

#include <QSslCertificate>
#include <QSslConfiguration>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

class Downloader : public ApplicationTest, public QObject, public VideoDownloaderDelegate {
protected:
    static void SetUpTestSuite() { s_server = new WebServer; }
    static void TearDownTestSuite() { delete std::exchange(s_server, nullptr); }
    void SetUp() override {
        ASSERT_TRUE(s_server->isRunning());
        UserSettings::shared().setSendUsageData(true);
        HTTPClient::setShared(std::make_shared<NetworkHTTPClient>());
    }
    void TearDown() override { HTTPClient::setShared(nullptr); }

    void didUpdateProgress(double fraction) override { m_fractions.append(fraction); }
    void didReceiveBytes(const DownloadProgress& progress) override {
        m_receivedBytes = progress.receivedBytes;
    }

    static QUrl http(const QString& path) { return s_server->http(path); }
    static QUrl https(const QString& path) { return s_server->https(path); }
    static QString redirect(const QUrl& to) {
        return u"/redirect/"_s + QString::fromLatin1(QUrl::toPercentEncoding(to.toString())) + u"/x.mov"_s;
    }
    static QUrl inDownloads(const QString& name) {
        return appendingPathComponent(FileSystem::shared().downloadsFolder(), name);
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

    QStringList events() const {
        QStringList names;
        for (const InMemoryAnalytics::Event& event : m_services.analytics->state().events)
            names.append(event.parameters ? event.name + u" with parameters"_s : event.name);
        return names;
    }
    void begin(const QUrl& url) {
        m_services.analytics->reset();
        m_result.reset();
        m_fractions.clear();
        const auto downloader = VideoDownloader::make(url);
        downloader->setDelegate(this);
        downloader->download([this](const VideoDownloader::DownloadResult& result) {
            EXPECT_TRUE(!m_result && OngoingWork::isAny());
            m_eventsBefore = events();
            m_result = result;
        });
        EXPECT_TRUE(!m_result && OngoingWork::isAny());
    }
    VideoDownloader::DownloadResult end() {
        EXPECT_TRUE(runLoopUntil([this] { return m_result.has_value(); }));
        return *m_result;
    }
    VideoDownloader::DownloadResult download(const QUrl& url) {
        begin(url);
        return end();
    }

    std::optional<VideoDownloader::DownloadResult> m_result;
    QStringList m_eventsBefore;
    QList<double> m_fractions;
    qint64 m_receivedBytes = 0;
    static inline WebServer* s_server = nullptr;
};

} // namespace

TEST_F(Downloader, EveryAnswerOfAServerIsAFileLoggedThenHandedOver) {
    enum class Length { Told, Untold };
    struct Case {
        QString path;
        qint64 sizeBytes;
        Length length = Length::Told;
    };
    for (const auto& [path, sizeBytes, length] :
         {Case{u"/body/3000000/x.mov?size=large#t=3"_s, 3000000},
          Case{u"/chunked/3000000/x.mov"_s, 3000000, Length::Untold},
          Case{u"/body/0/x.mov"_s, 0, Length::Untold}, Case{u"/status/204/x.mov"_s, 0, Length::Untold},
          Case{u"/status/401/x.mov"_s, 24}, Case{u"/status/404/elsewhere/x.mov"_s, 24},
          Case{u"/status/500/x.mov"_s, 24}, Case{u"/hops/5/x.mov"_s, 10}}) {
        SCOPED_TRACE(path.toStdString());
        write(inDownloads(u"x.mov"_s), "of another time");
        EXPECT_EQ(download(http(path)), inDownloads(u"x.mov"_s));
        EXPECT_EQ(files(), QStringList{u"downloads/x.mov"_s});
        EXPECT_EQ(contents(inDownloads(u"x.mov"_s)).size(), sizeBytes);
        EXPECT_EQ(m_receivedBytes, sizeBytes);
        EXPECT_EQ(m_fractions.isEmpty() ? 0 : m_fractions.last(), length == Length::Told ? 1 : 0);
        EXPECT_EQ(m_eventsBefore, QStringList{u"download_success"_s});
        EXPECT_EQ(events(), m_eventsBefore);
    }
    EXPECT_FALSE(OngoingWork::isAny());
}

TEST_F(Downloader, ATransferThatDoesNotComeToItsEndIsAFailureHandedOverThenLogged) {
    HTTPClient::setShared(std::make_shared<NetworkHTTPClient>(std::chrono::milliseconds(300)));
    for (const QUrl& url :
         {http(u"/cut/100000/x.mov"_s), http(u"/half/2/never/x.mov"_s), http(u"/hops/100/x.mov"_s),
          http(redirect(QUrl(u"file:///etc/passwd"_s))), https(u"/body/10/x.mov"_s),
          QUrl(u"http://127.0.0.1:1/x.mov"_s), QUrl(u"file:///etc/passwd"_s), QUrl(u"http:///x.mov"_s),
          QUrl(u"x.mov"_s), QUrl()}) {
        SCOPED_TRACE(url.toString().toStdString());
        write(inDownloads(u"x.mov"_s), "of another time");
        const auto result = download(url);
        ASSERT_FALSE(result);
        EXPECT_EQ(localizedDescription(result.error()),
                  u"The operation couldn’t be completed. (VideoDownloader.DownloadError error 0.)"_s);
        EXPECT_EQ(contents(inDownloads(u"x.mov"_s)), "of another time");
        EXPECT_EQ(files(), QStringList{u"downloads/x.mov"_s});
        EXPECT_EQ(m_eventsBefore, QStringList());
        EXPECT_EQ(events(), QStringList{u"download_failure"_s});
    }
}

TEST_F(Downloader, TheFileIsNamedAsTheLastComponentOrThereIsNone) {
    const std::map<QString, QString> names{{u"a%20b%3Fc%25"_s, u"a b?c%"_s},
                                           {u"sub/%C3%A9.mov"_s, u"é.mov"_s},
                                           {u"..mov"_s, u"..mov"_s},
                                           {QString(255, u'x'), QString(255, u'x')}};
    for (const auto& [component, name] : names) {
        const auto result = download(http(u"/body/1/"_s + component));
        EXPECT_EQ(files(), QStringList{u"downloads/"_s + name});
        FileSystem::shared().deleteVideo(result.value());
    }
    for (const QString& component :
         {u""_s, u"."_s, u".."_s, u"%2E%2e"_s, u"..%2Fx"_s, u"a%2Fb"_s, u"x%00.mov"_s, QString(256, u'x')}) {
        EXPECT_FALSE(download(http(u"/body/1/"_s + component))) << component.toStdString();
        EXPECT_EQ(files(), QStringList());
    }
}

TEST_F(Downloader, WithoutConsentOrClientTheResultsAreTheSameOrFailures) {
    UserSettings::shared().setSendUsageData(false);
    EXPECT_TRUE(download(http(u"/body/1/x.mov"_s)));
    HTTPClient::setShared(nullptr);
    EXPECT_FALSE(download(http(u"/body/1/x.mov"_s)));
    EXPECT_EQ(events(), QStringList());
}

TEST_F(Downloader, ATrustedServerMayNotSendUsToAnUnprotectedPlace) {
    const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
    QSslConfiguration trusting = before;
    ASSERT_TRUE(trusting.addCaCertificates(s_server->certificate()));
    QSslConfiguration::setDefaultConfiguration(trusting);
    EXPECT_TRUE(download(http(redirect(https(u"/body/1/x.mov"_s)))));
    EXPECT_FALSE(download(https(redirect(http(u"/body/1/x.mov"_s)))));
    QSslConfiguration::setDefaultConfiguration(before);
}

TEST_F(Downloader, ABodyGoesIntoAHiddenFileThatOthersSpareAndThatGoesWithTheClient) {
    const auto waitForHalf = [this] { return runLoopUntil([this] { return m_fractions.contains(0.5); }); };
    begin(http(u"/half/2000000/x.mov"_s));
    ASSERT_TRUE(waitForHalf());
    FileSystem::shared().removeLeftovers();
    ASSERT_EQ(files().size(), 1);
    EXPECT_TRUE(files().first().startsWith(u"downloads/.reelsmith-"_s));
    EXPECT_EQ(contents(inDownloads(files().first().mid(10))).size(), 1000000);
    HTTPClient::shared()->download(
        http(u"/goon/0/x.mov"_s),
        [] {
            return DownloadDestination{inDownloads(u"../other"_s), {}};
        },
        [](const DownloadProgress&) {}, [](const std::optional<QUrl>&) {});
    EXPECT_TRUE(end());
    EXPECT_TRUE(runLoopUntil([] { return files().contains(u"other"_s); }));
    EXPECT_EQ(contents(inDownloads(u"x.mov"_s)).size(), 2000000);

    begin(http(u"/half/2000000/y.mov"_s));
    ASSERT_TRUE(waitForHalf());
    HTTPClient::setShared(nullptr);
    EXPECT_FALSE(m_result || OngoingWork::isAny());
    EXPECT_EQ(files().size(), 2);
}

TEST_F(Downloader, ItsBackgroundTaskOutlastsIt) {
    int holds = 0;
    UIApplication::shared().setSleepInhibitor(std::make_unique<CountingInhibitor>(holds));
    EXPECT_TRUE(download(http(u"/body/1/x.mov"_s)));
    EXPECT_EQ(holds, 1);
    UIApplication::shared().setSleepInhibitor(std::make_unique<Inhibitor>());
}

TEST_F(Downloader, WithoutTheOptionsNothingIsReplacedOrMade) {
    write(inDownloads(u"x.mov"_s), "of another time");
    int failureCount = 0;
    for (const QString& name : {u"x.mov"_s, u"folder/x.mov"_s}) {
        HTTPClient::shared()->download(
            http(u"/body/1/x.mov"_s),
            [name] {
                return DownloadDestination{inDownloads(name), {}};
            },
            [](const DownloadProgress&) {},
            [&](const std::optional<QUrl>& file) { failureCount += file ? 0 : 1; });
    }
    EXPECT_TRUE(runLoopUntil([&] { return failureCount == 2; }));
    EXPECT_EQ(contents(inDownloads(u"x.mov"_s)), "of another time");
    EXPECT_EQ(files(), QStringList{u"downloads/x.mov"_s});
}
