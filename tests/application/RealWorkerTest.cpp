// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "library/MediaTexts.h"
#include "platform/foundation/URLs.h"

#include <QProcess>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

/// These run in a process of their own, with the worker that is installed.
class RealWorker : public ApplicationTest {
protected:
    QUrl ffmpeg(const QString& options, const QString& name) const {
        const QString path = m_folder.filePath(name);
        EXPECT_EQ(QProcess::execute(u"ffmpeg"_s, (u"-v error "_s + options).split(u' ') + QStringList{path}),
                  0);
        return fileUrl(path.toStdString());
    }
};

} // namespace

TEST_F(RealWorker, ALargePictureIsMadeToFitUprightAndKeepsItsColours) {
    const QUrl lying =
        ffmpeg(u"-f lavfi -i color=red:s=1280x720:d=3725.9:r=1/60 -pix_fmt yuv420p"_s, u"lying.mp4"_s);
    const QUrl url =
        ffmpeg(u"-i "_s + lying.toLocalFile() + u" -c copy -metadata:s:v rotate=90"_s, u"upright.mp4"_s);
    const UIImage image = thumbnail(url);
    EXPECT_EQ(image.size().height(), 500);
    EXPECT_NEAR(image.size().width(), 281, 1);
    const auto pixel = [&image](qsizetype byte) {
        return static_cast<unsigned char>(image.cgImage().pixels.at(byte));
    };
    for (const qsizetype byte : {qsizetype{0}, image.cgImage().pixels.size() - 4}) {
        EXPECT_GT(pixel(byte), 230);
        EXPECT_LT(pixel(byte + 1), 30);
        EXPECT_LT(pixel(byte + 2), 30);
        EXPECT_EQ(pixel(byte + 3), 255);
    }
    EXPECT_EQ(ConvertedVideo(url).resolutionText(), resolutionText({720, 1280}, QLocale::system()));
}
