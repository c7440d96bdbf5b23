// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "platform/avfoundation/AVAssetImageGenerator.h"
#include "platform/avfoundation/ExportPresets.h"
#include "platform/avfoundation/MediaService.h"
#include "platform/avfoundation/SourceFile.h"
#include "platform/avfoundation/UserLanguages.h"
#include "platform/avfoundation/WorkerProcess.h"
#include "platform/foundation/URLs.h"

#include <csignal>
#include <fcntl.h>
#include <future>
#include <unistd.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

using Media = ApplicationTest;

AVAssetImageGenerator thumbnailer(const QUrl& url) {
    AVAssetImageGenerator generator{AVAsset(url)};
    generator.appliesPreferredTrackTransform = true;
    generator.maximumSize = QSize(500, 500);
    return generator;
}

} // namespace

TEST_F(Media, AnAssetTellsWhatTheWorkerFoundAtOneQuestion) {
    const QUrl url = file(u"a"_s);
    const AVAsset asset(url);
    EXPECT_TRUE(asset.isPlayable());
    std::filesystem::remove(filePath(url)); // one question was asked for all properties
    EXPECT_TRUE(AVAsset(asset).isExportable());
    EXPECT_EQ(asset.duration(), (CMTime{1490, 400}));
    const auto tracks = asset.tracks(AVMediaType::Video);
    ASSERT_EQ(tracks.size(), 1U);
    EXPECT_EQ(tracks[0].naturalSize, QSizeF(1920, 1080));
    EXPECT_EQ(tracks[0].preferredTransform, (CGAffineTransform{0, 1, -1, 0}));
    EXPECT_EQ(asset.estimatedOutputFileLength(AVAssetExportPresetMediumQuality), 20);
    EXPECT_EQ(asset.estimatedOutputFileLength(AVAssetExportPresetPassthrough), std::nullopt);
}

TEST_F(Media, WhatCannotBeReadInTimeHasNoPropertiesAndHoldsUpNobody) {
    for (const QUrl& url :
         {file(u"dying"_s, "probe die\n"), file(u"unknown"_s, "probe nonsense\n"), fileUrl("/nothing"),
          fileUrl("/dev/null"), QUrl(u"https://host/a.mp4"_s), file(u"stuck"_s, "probe hang\n")}) {
        const AVAsset asset(url);
        EXPECT_FALSE(asset.isPlayable() || asset.isExportable()) << url.toString().toStdString();
        EXPECT_EQ(asset.duration().seconds(), 0);
        EXPECT_TRUE(asset.tracks(AVMediaType::Video).empty());
    }
    EXPECT_TRUE(AVAsset(file(u"next"_s)).isPlayable());
}

TEST_F(Media, AWorkerIsNotBelievedWhatItSaysOfItsPicture) {
    for (const QByteArray script : {"thumbnail claim 501 500\n", "thumbnail claim 0 10\n", "thumbnail die\n",
                                    "thumbnail picture 2000 2000\n", "probe die\n"})
        EXPECT_FALSE(thumbnailer(file(u"a"_s, script)).copyCGImage({})) << script.toStdString();
}

TEST_F(Media, PropertiesAndASecondPictureDoNotWaitForASlowOne) {
    const QString mark = m_folder.filePath(u"mark"_s);
    const QUrl slow = file(u"slow"_s, "thumbnail await " + mark.toUtf8() + "\nthumbnail picture 10 10\n");
    auto image = std::async(std::launch::async, [&slow] { return thumbnailer(slow).copyCGImage({}); });
    EXPECT_TRUE(AVAsset(file(u"a"_s)).isPlayable());
    EXPECT_TRUE(thumbnailer(file(u"b"_s, "thumbnail picture 10 10\n")).copyCGImage({}));
    file(u"mark"_s);
    EXPECT_TRUE(image.get());
}

TEST_F(Media, AWorkerInheritsItsChannelAndNothingElse) {
    const mediaworker::Descriptor inheritable(::open("/dev/null", O_RDONLY));
    // 4 and 5 are the source and the output that come with the question.
    const auto image = thumbnailer(file(u"a"_s, "thumbnail descriptors\n")).copyCGImage({});
    ASSERT_FALSE(image);
    EXPECT_EQ(image.error().localizedDescription, u"0 1 2 3 4 5 "_s);

    const auto source = openSourceFile(file(u"a"_s));
    EXPECT_EQ(::fcntl(source->number(), F_GETFL) & O_ACCMODE, O_RDONLY);

    qputenv("OFREP_HEADERS", "secret");
    const auto other = thumbnailer(file(u"b"_s, "thumbnail environment OFREP_HEADERS\n")).copyCGImage({});
    EXPECT_EQ(other.error().localizedDescription, u"not there"_s);
}

TEST_F(Media, AWorkerWithoutWorkIsEnded) {
    MediaService service(1, std::chrono::milliseconds::zero());
    const auto request = std::make_shared<MediaRequest>(mediaworker::ThumbnailRequest{{}, 10, 10},
                                                        *openSourceFile(file(u"a"_s, "thumbnail process\n")));
    service.ask(request);
    const auto worker = std::stoi(std::get<mediaworker::ThumbnailReply>(*request->answer()).problem);
    EXPECT_TRUE(runLoopUntil([worker] { return ::kill(worker, 0) != 0; }));
}

TEST_F(Media, AWorkerThatAnswersUnaskedAndNeverListensHoldsUpNobody) {
    EXPECT_TRUE(AVAsset(file(u"flood"_s, "probe flood\n")).isPlayable());
    const QUrl url = file(u"a"_s);
    for (int i = 0; i < 1000; ++i)
        ASSERT_TRUE(AVAsset(url).isPlayable()) << i;
}

TEST(WorkerProcess, AProgramThatIsNotThereIsAnOrdinaryFailure) {
    WorkerProcess::setProgram("/nothing/here");
    const auto worker = WorkerProcess::start(WorkerProcess::Role::Export);
    WorkerProcess::setProgram(SCRIPTED_WORKER);
    ASSERT_FALSE(worker);
    EXPECT_TRUE(worker.error().localizedDescription.contains(u"/nothing/here"_s));
}

TEST(UserLanguages, BothCodesOfALanguageAreNamedOnce) {
    using Codes = std::vector<std::string>;
    EXPECT_EQ(languageCodes({u"de-AT"_s, u"de"_s, u"en-US"_s}), (Codes{"deu", "ger", "eng"}));
    EXPECT_EQ(languageCodes({u"C"_s, u"pt_BR"_s}), (Codes{"por"}));
    EXPECT_EQ(languageCodes({}), Codes());
}
