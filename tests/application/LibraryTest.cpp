// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "library/MediaTexts.h"
#include "library/ThumbnailCache.h"
#include "library/ThumbnailQueue.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/DocumentsFolder.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/URLs.h"

#include <array>
#include <atomic>
#include <future>
#include <limits>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

using Library = ApplicationTest;

UIImage picture(int bytes) {
    return UIImage({1, bytes / 4, QByteArray(bytes, 'x')});
}

const QByteArray pictureScript = "thumbnail picture 10 10\n";

} // namespace

TEST_F(Library, TheFoldersAreMadeEvenWhereOneFails) {
    std::filesystem::remove_all(filePath(documentsFolder()));
    write(appendingPathComponent(documentsFolder(), u"outputs"_s), {});
    FileSystem::shared().createFolders();
    for (const QString& name : {u"downloads"_s, u"firstPass"_s})
        EXPECT_TRUE(std::filesystem::is_directory(filePath(appendingPathComponent(documentsFolder(), name))));
    EXPECT_FALSE(FileSystem::shared().convertedVideos());
}

TEST_F(Library, DownloadsAreClearedWithALineForEach) {
    const QUrl downloads = appendingPathComponent(documentsFolder(), u"downloads"_s);
    write(appendingPathComponent(downloads, u"a b.mov"_s), {});
    write(appendingPathComponent(downloads, u".hidden"_s), {});
    FileSystem::shared().clearDownloads();
    EXPECT_EQ(m_console.lines(),
              QStringList{u"Deleting: "_s +
                          appendingPathComponent(downloads, u"a b.mov"_s).toString(QUrl::FullyEncoded)});
    EXPECT_TRUE(FileManager::defaultManager().contentsOfDirectory(downloads)->empty());
    EXPECT_TRUE(std::filesystem::exists(filePath(appendingPathComponent(downloads, u".hidden"_s))));
}

TEST_F(Library, AThumbnailIsKeptUntilItsFileChanges) {
    const QUrl url = inOutputs(u"a.mp4"_s);
    write(url, pictureScript);
    EXPECT_EQ(thumbnail(url).size(), QSize(10, 10));
    write(url, "thumbnail picture 20 20\n");
    EXPECT_EQ(thumbnail(url).size(), QSize(10, 10));
    write(inOutputs(u".new"_s), "thumbnail picture 500 500\n");
    ASSERT_TRUE(FileManager::defaultManager().replaceItem(url, filePath(inOutputs(u".new"_s))));
    EXPECT_EQ(thumbnail(url).size(), QSize(500, 500));
    FileSystem::shared().deleteVideo(url);
    EXPECT_EQ(outputs(), QStringList());
    EXPECT_TRUE(thumbnail(url).isEmpty());
}

TEST_F(Library, AThumbnailThatFailedIsTriedAgain) {
    const QUrl url = file(u"a"_s, "thumbnail claim 500 501\n");
    EXPECT_TRUE(thumbnail(url).isEmpty());
    EXPECT_EQ(m_console.lines(), QStringList{u"the media worker made a picture larger than asked for"_s});
    write(url, pictureScript);
    EXPECT_FALSE(thumbnail(url).isEmpty());
}

TEST(ThumbnailQueue, TheNewestWishComesFirstAnUnwantedOneNeverAndOtherWorkAtOnce) {
    std::array<std::promise<void>, 3> gates;
    std::atomic<int> begunCount = 0;
    for (std::promise<void>& gate : gates)
        ThumbnailQueue::shared().add(
            [&begunCount, gate = gate.get_future().share()] {
                ++begunCount;
                gate.wait();
            },
            {});
    ASSERT_TRUE(runLoopUntil([&] { return begunCount == 3; }));
    std::stop_source scrolledAway;
    QList<int> begun; // touched by one thread until the last gate opens
    std::promise<void> isThrough;
    ThumbnailQueue::shared().add([&isThrough] { isThrough.set_value(); }, {});
    for (int number = 0; number < 1000; ++number)
        ThumbnailQueue::shared().add([&begun, number] { begun.append(number); },
                                     number < 997 ? scrolledAway.get_token() : std::stop_token());
    scrolledAway.request_stop();
    std::promise<void> otherWork;
    DispatchQueue::global(QualityOfService::UserInitiated).async([&otherWork] { otherWork.set_value(); });
    otherWork.get_future().wait();
    gates[0].set_value();
    isThrough.get_future().wait();
    EXPECT_EQ(begun, (QList{999, 998, 997}));
    gates[1].set_value();
    gates[2].set_value();
}

TEST(ThumbnailCache, TheLeastRecentlyUsedImageMakesRoom) {
    ThumbnailCache cache(100);
    const QUrl a(u"file:///a"_s), b(u"file:///b"_s), c(u"file:///c"_s);
    cache.insert(a, picture(40), cache.now());
    cache.insert(b, picture(40), cache.now());
    cache.insert(b, picture(60), cache.now());
    EXPECT_TRUE(cache.image(a));
    cache.insert(c, picture(20), cache.now());
    EXPECT_TRUE(cache.image(a));
    EXPECT_FALSE(cache.image(b));
    EXPECT_TRUE(cache.image(c));
    cache.insert(b, picture(104), cache.now());
    EXPECT_FALSE(cache.image(a) || cache.image(b) || cache.image(c));
}

TEST(ThumbnailCache, AnImageOfAFileThatHasChangedMeanwhileIsNotKept) {
    ThumbnailCache cache(100);
    const QUrl video(u"file:///folder/a"_s);
    const ThumbnailCache::Moment begin = cache.now();
    cache.forget(video);
    cache.insert(video, picture(4), begin);
    EXPECT_FALSE(cache.image(video));
    cache.insert(video, picture(4), cache.now());
    cache.forget(QUrl(u"file:///folder"_s));
    EXPECT_FALSE(cache.image(video));
}

TEST(MediaTexts, DurationsAreCutToWholeSecondsAndDimensionsGroupedAsTheLocaleDoes) {
    const std::map<double, QString> cases{{0, u"00:00:00"_s},       {0.99, u"00:00:00"_s},
                                          {7, u"00:00:07"_s},       {3725.9, u"01:02:05"_s},
                                          {442800, u"123:00:00"_s}, {3723, u"01:02:03"_s}};
    for (const auto& [seconds, text] : cases)
        EXPECT_EQ(durationText(seconds), text);
    EXPECT_EQ(resolutionText({1920, -1080}, QLocale(u"en_US"_s)), u"1,920x1,080"_s);
    EXPECT_EQ(resolutionText({1920, 1080}, QLocale(u"es_ES"_s)), u"1920x1080"_s);
    EXPECT_EQ(resolutionText({std::numeric_limits<double>::quiet_NaN(), 2}, QLocale(u"en_US"_s)), u"--x2"_s);
}

TEST(MediaTextsDeathTest, ADurationThatIsNoNumberOfSecondsIsFatal) {
    for (const double seconds :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(), 1e19})
        EXPECT_DEATH(durationText(seconds), "Fatal error: A duration is no number of seconds");
}
