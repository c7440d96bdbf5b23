// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScreensTest.h"

#include "platform/foundation/URLs.h"
#include "platform/screens/UIImagePickerCell.h"
#include "platform/screens/UIImagePickerController.h"

#include <QFile>
#include <QProcess>
#include <chrono>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

namespace fs = std::filesystem;

class ImagePicker : public ScreensTest, public QObject, public UIImagePickerControllerDelegate {
protected:
    fs::path path(const QString& name) const { return m_folder.filePath(name).toStdString(); }

    /// A file that was changed some minutes ago.
    void write(const QString& name, int minutes) {
        fs::create_directories(path(name).parent_path());
        QFile(m_folder.filePath(name)).open(QIODevice::WriteOnly);
        fs::last_write_time(path(name), fs::file_time_type::clock::now() - std::chrono::minutes(minutes));
    }
    void ffmpeg(const QString& arguments, const QString& name) const {
        const QStringList words = (u"-v error "_s + arguments).split(u' ');
        ASSERT_EQ(QProcess::execute(u"ffmpeg"_s, words + QStringList{m_folder.filePath(name)}), 0);
    }
    UIImagePickerController& presentPicker(const QStringList& types = {kUTTypeMovie}) {
        auto picker =
            std::make_unique<UIImagePickerController>(std::vector<fs::path>{m_folder.path().toStdString()});
        picker->setMediaTypes(types);
        picker->setDelegate(this);
        UIImagePickerController& shown = present(std::move(picker));
        shown.collectionView()->setViewport(0, 390, 700);
        return shown;
    }
    UIImagePickerCell* cell(UIImagePickerController& picker, int number) {
        EXPECT_TRUE(runLoopUntil([&] { return picker.collectionView()->cell(number) != nullptr; }));
        return qobject_cast<UIImagePickerCell*>(picker.collectionView()->cell(number));
    }

    void imagePickerControllerDidFinishPickingMediaWithInfo(UIImagePickerController& picker,
                                                            const QVariantMap& info) override {
        m_picked.append(info.value(UIImagePickerControllerMediaURL).toUrl());
        picker.dismiss(Animated::Yes);
    }
    void imagePickerControllerDidCancel(UIImagePickerController&) override { ++m_cancellations; }

    QList<QUrl> m_picked;
    int m_cancellations = 0;
};

} // namespace

TEST_F(ImagePicker, MoviesAreFoundOnceAndTheLatestFirst) {
    write(u"Videos/old.mp4"_s, 30);
    write(u"Videos/2023/deep/new.MKV"_s, 1);
    write(u"Pictures/middle.avi"_s, 10);
    write(u"Pictures/photo.jpg"_s, 2);
    write(u"Pictures/.hidden.mp4"_s, 3);
    write(u"Videos/.thumbnails/small.mp4"_s, 4);
    write(u"Videos/video.mp4.part"_s, 5);
    fs::create_directory_symlink(path(u"Videos"_s), path(u"Videos/2023/loop"_s));
    fs::create_symlink(path(u"Videos/old.mp4"_s), path(u"Pictures/again.mp4"_s));
    fs::create_symlink(path(u"gone.mp4"_s), path(u"Pictures/dangling.mp4"_s));
    QStringList names;
    for (const FoundVideo& video : VideoCollection::find(
             {path(u"Videos"_s), path(u"Pictures"_s), path(u"Videos/2023"_s), path(u"missing"_s)}, {}))
        names.append(video.url.fileName());
    EXPECT_EQ(names, (QStringList{u"new.MKV"_s, u"middle.avi"_s, u"old.mp4"_s}));
}

/// In a process of its own, with the worker that is installed.
using RealWorker = ImagePicker;

TEST_F(RealWorker, ATileShowsItsMovieUprightInItsColoursAndATapPicksIt) {
    ffmpeg(u"-f lavfi -i color=red:s=320x240:d=75:r=1 -pix_fmt yuv420p"_s, u".lying.mp4"_s);
    ffmpeg(u"-i %1 -c copy -metadata:s:v rotate=90"_s.arg(m_folder.filePath(u".lying.mp4"_s)),
           u"red film.mp4"_s);
    UIImagePickerController& picker = presentPicker();
    EXPECT_TRUE(picker.isFullScreen());
    UIImagePickerCell* tile = cell(picker, 0);
    ASSERT_NE(tile, nullptr);
    ASSERT_TRUE(runLoopUntil([tile] { return !tile->thumbnailImageView()->image().isEmpty(); }));
    const CGImage picture = tile->thumbnailImageView()->image().cgImage();
    EXPECT_NEAR(picture.width * 4, picture.height * 3, 4);
    for (const qsizetype pixel : {qsizetype{0}, picture.pixels.size() - 4}) {
        const auto part = [&](int index) { return static_cast<uchar>(picture.pixels.at(pixel + index)); };
        EXPECT_TRUE(part(0) > 230 && part(1) < 30 && part(2) < 30 && part(3) == 255) << "red";
    }
    EXPECT_EQ(tile->durationLabel()->text(), u"1:15"_s);
    EXPECT_EQ(tile->nameLabel()->text(), u"red film.mp4"_s);
    EXPECT_EQ(tile->frame(), QRectF(0, 0, 128, 128));
    EXPECT_TRUE(picker.emptyStateView()->isHidden());
    tile->tap();
    tile->tap();
    settle();
    EXPECT_EQ(m_picked, QList<QUrl>{fileUrl(path(u"red film.mp4"_s))});
    EXPECT_TRUE(isNothingPresented());
}

TEST_F(ImagePicker, WhatHasScrolledPastIsNotLookedAt) {
    for (int i = 0; i < 60; ++i)
        write(u"%1.mp4"_s.arg(i), i);
    UIImagePickerController& picker = presentPicker();
    UIImagePickerCell* tile = cell(picker, 0);
    bool isLearned = false;
    tile->showVideo(fileUrl(path(u"0.mp4"_s)), nullptr,
                    [&isLearned](const VideoPreview::Facts&) { isLearned = true; });
    picker.collectionView()->setViewport(1800, 390, 700);
    // The cell's next movie is asked for later, so it is looked at when the one before would have been.
    bool isLaterLearned = false;
    const VideoPreview later(fileUrl(path(u"59.mp4"_s)),
                             [&isLaterLearned](const VideoPreview::Facts&) { isLaterLearned = true; });
    EXPECT_TRUE(runLoopUntil([&] { return isLaterLearned; }));
    EXPECT_FALSE(isLearned);
}

TEST_F(ImagePicker, WithoutMoviesThereIsAnEmptyState) {
    write(u"film.mp4"_s, 0);
    UIImagePickerController& none = presentPicker({u"public.image"_s});
    EXPECT_FALSE(none.emptyStateView()->isHidden());
    none.goBack();
    EXPECT_EQ(m_cancellations, 1);
    settle();
    EXPECT_FALSE(isNothingPresented()) << "it stays until its delegate takes it away";
}

TEST_F(ImagePicker, FoldersAreReadAnewAtEachAppearance) {
    UIImagePickerController& picker = presentPicker();
    EXPECT_TRUE(runLoopUntil([&] { return !picker.emptyStateView()->isHidden(); }));
    EXPECT_TRUE(picker.activityIndicatorView()->isHidden());
    write(u"film.mp4"_s, 0);
    picker.beginAppearanceTransition(false);
    picker.endAppearanceTransition();
    picker.beginAppearanceTransition(true);
    EXPECT_FALSE(picker.activityIndicatorView()->isHidden());
    EXPECT_NE(cell(picker, 0), nullptr);
    EXPECT_TRUE(picker.emptyStateView()->isHidden());
}

TEST(VideoPreview, DurationsReadLikeAClock) {
    const std::vector<std::pair<double, QString>> cases{
        {0, u""_s}, {0.4, u"0:01"_s}, {42.9, u"0:42"_s}, {750, u"12:30"_s}, {3725, u"1:02:05"_s}};
    for (const auto& [seconds, text] : cases)
        EXPECT_EQ(VideoPreview::durationText(seconds), text) << seconds;
}
