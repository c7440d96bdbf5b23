// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "library/MediaTexts.h"
#include "platform/avfoundation/AVAsset.h"
#include "platform/foundation/URLs.h"

#include <QProcess>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

/// These run in a process of their own, with the worker that is installed.
class RealWorker : public ApplicationTest {
protected:
    QUrl make(const QString& name, const QString& picture) const {
        return ffmpeg({u"-f"_s, u"lavfi"_s, u"-i"_s, picture, u"-pix_fmt"_s, u"yuv420p"_s}, name);
    }
    QUrl turned(const QUrl& url, const QString& name) const {
        return ffmpeg({u"-i"_s, url.toLocalFile(), u"-c"_s, u"copy"_s, u"-metadata:s:v"_s, u"rotate=90"_s},
                      name);
    }
    QUrl ffmpeg(const QStringList& options, const QString& name) const {
        const QString path = m_folder.filePath(name);
        EXPECT_EQ(
            QProcess::execute(u"ffmpeg"_s, QStringList{u"-v"_s, u"error"_s} + options + QStringList{path}),
            0);
        return fileUrl(path.toStdString());
    }

    static UIImage thumbnail(const QUrl& url) {
        std::optional<UIImage> image;
        ConvertedVideo(url).thumbnail([&image](const UIImage& made) { image = made; });
        EXPECT_TRUE(runLoopUntil([&image] { return image.has_value(); }));
        return image.value_or(UIImage());
    }
};

} // namespace

TEST_F(RealWorker, ALargePictureIsMadeToFitAndKeepsItsColours) {
    const QUrl url = make(u"red.mp4"_s, u"color=red:s=1280x720:d=3725.9:r=1/60"_s);
    const UIImage image = thumbnail(url);
    EXPECT_EQ(image.size().width(), 500);
    EXPECT_NEAR(image.size().height(), 281, 1);
    const auto pixel = [&image](qsizetype byte) {
        return static_cast<unsigned char>(image.cgImage().pixels.at(byte));
    };
    for (const qsizetype byte : {qsizetype{0}, image.cgImage().pixels.size() - 4}) {
        EXPECT_GT(pixel(byte), 230);
        EXPECT_LT(pixel(byte + 1), 30);
        EXPECT_LT(pixel(byte + 2), 30);
        EXPECT_EQ(pixel(byte + 3), 255);
    }
    EXPECT_EQ(ConvertedVideo(url).resolutionText(), resolutionText({1280, 720}, QLocale::system()));
}

TEST_F(RealWorker, ATurnedVideoIsShownUpright) {
    const QUrl url = turned(make(u"lying.mp4"_s, u"testsrc2=s=320x240:d=7:r=5"_s), u"upright.mp4"_s);
    EXPECT_EQ(ConvertedVideo(url).resolutionText(), u"240x320"_s);
    EXPECT_EQ(ConvertedVideo(url).durationText(), u"00:00:07"_s);
    EXPECT_EQ(thumbnail(url).size(), QSize(240, 320));
}

TEST_F(RealWorker, WhatIsNoVideoHasNoPictureAndNoFacts) {
    const QUrl url = file(u"text.mp4"_s, QByteArray(5000, 'x'));
    EXPECT_TRUE(thumbnail(url).isEmpty());
    EXPECT_FALSE(m_console.lines().isEmpty());
    EXPECT_EQ(ConvertedVideo(url).resolutionText(), std::nullopt);
    EXPECT_EQ(ConvertedVideo(url).durationText(), u"00:00:00"_s);
    EXPECT_FALSE(AVAsset(url).isPlayable() || AVAsset(url).isExportable());
}
