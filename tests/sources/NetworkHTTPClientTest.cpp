// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/NetworkHTTPClient.h"

#include "application/Support.h"
#include "fakes/WebServer.h"

#include "platform/foundation/URLs.h"

#include <QDir>
#include <QSslCertificate>
#include <QSslConfiguration>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

using Options = DownloadDestination::Options;

constexpr Options bothOptions =
    DownloadDestination::RemovePreviousFile | DownloadDestination::CreateIntermediateDirectories;

/// What came of one download.
struct Outcome {
    QList<DownloadProgress> reports;
    std::optional<std::optional<QUrl>> file;
};

class NetworkClient : public ApplicationTest {
protected:
    static void SetUpTestSuite() { s_server = new WebServer; }
    static void TearDownTestSuite() { delete std::exchange(s_server, nullptr); }
    void SetUp() override { ASSERT_TRUE(s_server->isRunning()); }

    static QUrl http(const QString& path) { return s_server->http(path); }
    static QUrl https(const QString& path) { return s_server->https(path); }
    static QString certificate() { return s_server->certificate(); }
    static QString redirect(const QUrl& to) {
        return u"/redirect/"_s + QString::fromLatin1(QUrl::toPercentEncoding(to.toString())) + u"/x.mov"_s;
    }
    static QUrl place(const QString& name = u"x.mov"_s) {
        return appendingPathComponent(FileSystem::shared().downloadsFolder(), name);
    }
    static QStringList downloads() {
        return QDir(FileSystem::shared().downloadsFolder().toLocalFile())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::shared_ptr<Outcome> begin(const QUrl& url, const QUrl& to = place(), Options options = bothOptions) {
        const auto outcome = std::make_shared<Outcome>();
        m_client->download(
            url,
            [=] {
                return DownloadDestination{to, options};
            },
            [outcome](const DownloadProgress& progress) { outcome->reports.append(progress); },
            [outcome](const std::optional<QUrl>& file) {
                EXPECT_FALSE(outcome->file);
                outcome->file = file;
            });
        EXPECT_FALSE(outcome->file);
        return outcome;
    }
    static bool waitFor(const std::shared_ptr<Outcome>& outcome) {
        return runLoopUntil([&] { return outcome->file.has_value(); });
    }
    /// Whether a file came of it.
    bool fetch(const QUrl& url, const QUrl& to = place(), Options options = bothOptions) {
        const auto outcome = begin(url, to, options);
        return waitFor(outcome) && *outcome->file == to;
    }

    std::unique_ptr<NetworkHTTPClient> m_client = std::make_unique<NetworkHTTPClient>();

private:
    static inline WebServer* s_server = nullptr;
};

} // namespace

TEST_F(NetworkClient, EveryAnswerOfAServerIsAFile) {
    enum class Length { Told, Untold };
    struct Case {
        QString path;
        qint64 sizeBytes;
        Length length;
    };
    for (const auto& [path, sizeBytes, length] : {
             Case{u"/body/3000000/x.mov"_s, 3000000, Length::Told},
             Case{u"/chunked/3000000/x.mov"_s, 3000000, Length::Untold},
             Case{u"/unmeasured/3000000/x.mov"_s, 3000000, Length::Untold},
             Case{u"/gzip/60000/x.mov"_s, 60000, Length::Untold},
             Case{u"/body/0/x.mov"_s, 0, Length::Untold},
             Case{u"/status/204/x.mov"_s, 0, Length::Untold},
             Case{u"/status/400/x.mov"_s, 24, Length::Told},
             Case{u"/status/401/x.mov"_s, 24, Length::Told},
             Case{u"/status/404/x.mov"_s, 24, Length::Told},
             Case{u"/status/410/x.mov"_s, 24, Length::Told},
             Case{u"/status/500/x.mov"_s, 24, Length::Told},
             Case{u"/hops/5/x.mov"_s, 10, Length::Told},
         }) {
        SCOPED_TRACE(path.toStdString());
        write(place(), "of another time");
        const auto outcome = begin(http(path));
        ASSERT_TRUE(waitFor(outcome));
        ASSERT_EQ(*outcome->file, place());
        EXPECT_EQ(downloads(), QStringList{u"x.mov"_s});
        EXPECT_EQ(contents(place()).size(), sizeBytes);
        ASSERT_FALSE(outcome->reports.isEmpty());
        EXPECT_EQ(outcome->reports.last().receivedBytes, sizeBytes);
        for (const DownloadProgress& progress : outcome->reports)
            EXPECT_EQ(progress.expectedBytes,
                      length == Length::Told ? std::optional(sizeBytes) : std::nullopt);
    }
}

TEST_F(NetworkClient, ATransferThatDoesNotComeToItsEndLeavesNothing) {
    m_client = std::make_unique<NetworkHTTPClient>(std::chrono::milliseconds(300));
    for (const QUrl& url :
         {http(u"/cut/100000/x.mov"_s), http(u"/cutchunk/100000/x.mov"_s), http(u"/drop/x.mov"_s),
          http(u"/silence/x.mov"_s), http(u"/stall/0/x.mov"_s), http(u"/hops/100/x.mov"_s),
          http(redirect(QUrl(u"file:///etc/passwd"_s))), http(redirect(QUrl(u"ftp://127.0.0.1/x.mov"_s))),
          https(u"/body/10/x.mov"_s), QUrl(u"http://127.0.0.1:1/x.mov"_s), QUrl(u"file:///etc/passwd"_s),
          QUrl(u"http:///x.mov"_s), QUrl(u"data:,x.mov"_s), QUrl(u"x.mov"_s), QUrl()}) {
        SCOPED_TRACE(url.toString().toStdString());
        write(place(), "of another time");
        EXPECT_FALSE(fetch(url));
        EXPECT_EQ(contents(place()), "of another time");
        EXPECT_EQ(downloads(), QStringList{u"x.mov"_s});
    }
}

TEST_F(NetworkClient, OnceTrustedAServerMayNotSendUsToAnUnprotectedPlace) {
    const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
    QSslConfiguration trusting = before;
    ASSERT_TRUE(trusting.addCaCertificates(certificate()));
    QSslConfiguration::setDefaultConfiguration(trusting);
    EXPECT_TRUE(fetch(http(redirect(https(u"/body/10/x.mov"_s)))));
    EXPECT_TRUE(fetch(https(redirect(https(u"/body/10/x.mov"_s)))));
    EXPECT_FALSE(fetch(https(redirect(http(u"/body/10/x.mov"_s)))));
    QSslConfiguration::setDefaultConfiguration(before);
}

TEST_F(NetworkClient, ABodyGoesIntoAHiddenFileWhileItComes) {
    const auto outcome = begin(http(u"/half/2000000/a.mov"_s));
    const auto hasHalf = [&] {
        return !outcome->reports.isEmpty() && outcome->reports.last().fractionCompleted() == 0.5;
    };
    ASSERT_TRUE(runLoopUntil(hasHalf));
    FileSystem::shared().removeLeftovers();
    const QStringList hidden = downloads();
    ASSERT_EQ(hidden.size(), 1);
    EXPECT_TRUE(hidden.first().startsWith(u'.'));
    EXPECT_EQ(contents(place(hidden.first())).size(), 1000000);
    EXPECT_FALSE(outcome->file);

    const auto namesake = begin(http(u"/body/10/x.mov"_s));
    ASSERT_TRUE(waitFor(namesake));
    EXPECT_EQ(contents(place()).size(), 10);
    EXPECT_TRUE(fetch(http(u"/goon/0/a.mov"_s), place(u"other"_s)));
    ASSERT_TRUE(waitFor(outcome));
    EXPECT_EQ(contents(place()).size(), 2000000);

    const auto dropped = begin(http(u"/half/2000000/b.mov"_s));
    ASSERT_TRUE(runLoopUntil([&] { return !dropped->reports.isEmpty(); }));
    m_client.reset();
    EXPECT_FALSE(dropped->file);
    EXPECT_EQ(downloads(), (QStringList{u"other"_s, u"x.mov"_s}));
}

TEST_F(NetworkClient, TheOptionsSayWhatMayBeReplacedAndMade) {
    const QUrl url = http(u"/body/10/x.mov"_s);
    const QUrl deep = place(u"new/folder/x.mov"_s);
    EXPECT_FALSE(fetch(url, deep, DownloadDestination::RemovePreviousFile));
    EXPECT_TRUE(fetch(url, deep, DownloadDestination::CreateIntermediateDirectories));
    write(deep, "of another time");
    EXPECT_FALSE(fetch(url, deep, DownloadDestination::CreateIntermediateDirectories));
    EXPECT_EQ(contents(deep), "of another time");
    EXPECT_TRUE(fetch(url, deep, DownloadDestination::RemovePreviousFile));
    EXPECT_EQ(contents(deep).size(), 10);
    EXPECT_FALSE(fetch(url, place(u"new"_s)));
    EXPECT_FALSE(fetch(url, QUrl()));
    EXPECT_FALSE(fetch(url, file(u"outside.mov"_s)));
}
