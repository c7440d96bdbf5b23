// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "library/ConvertedVideoCollectionViewCell.h"
#include "library/ConvertedVideosViewController.h"
#include "library/LibraryReview.h"
#include "library/MediaTexts.h"
#include "library/VideoCollectionViewCell.h"
#include "library/VideoDetailViewController.h"
#include "library/VideoInfoCell.h"
#include "library/VideosViewController.h"
#include "platform/foundation/URLs.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/screens/UIActivityViewController.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UIContextMenuController.h"
#include "platform/uikit/UIScreen.h"

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

class LibraryScreens : public WholeApplicationTest {
protected:
    LibraryScreens() { launch(); }

    ConvertedVideosViewController& openList() {
        auto* list = qobject_cast<ConvertedVideosViewController*>(stack(1).topViewController());
        tabs().setSelectedIndex(1);
        list->collectionView()->setViewport(0, 350, 724);
        return *list;
    }
    VideosViewController& openGrid() {
        auto grid = std::make_unique<VideosViewController>();
        VideosViewController* const shown = grid.get();
        stack(1).setRootViewController(std::move(grid));
        tabs().setSelectedIndex(1);
        shown->collectionView()->setViewport(0, 390, 724);
        return *shown;
    }
    void comeBack() {
        tabs().setSelectedIndex(0);
        tabs().setSelectedIndex(1);
    }

    /// Answers the question before a deletion by its button `index`.
    void answerDeletion(int index) {
        auto& alert = await<UIAlertController>();
        EXPECT_EQ(alert.title(), u"Delete Video"_s);
        EXPECT_EQ(alert.message(), u"Are you sure you want to delete this video?"_s);
        ASSERT_EQ(alert.actions().size(), 2);
        EXPECT_EQ(alert.actions().at(0).toMap().value(u"title"_s), u"delete"_s);
        EXPECT_EQ(alert.actions().at(1).toMap().value(u"title"_s), u"cancel"_s);
        alert.press(index);
        ASSERT_TRUE(isAtHome());
    }

    static void videoAt(const QString& name, int age) {
        write(inOutputs(name), "thumbnail picture 10 10\n");
        std::filesystem::last_write_time(filePath(inOutputs(name)),
                                         std::filesystem::file_time_type() - std::chrono::hours(age));
    }
};

} // namespace

TEST_F(LibraryScreens, TheReviewIsDueOnceInTheSecondRun) {
    UserDefaults defaults(m_folder.filePath(u"defaults"_s));
    for (const QList<bool>& answers :
         {QList{false, false, false}, QList{true, false, false}, QList{false, false, false}}) {
        LibraryReview run(defaults);
        for (const bool isDue : answers)
            EXPECT_EQ(run.isDue(), isDue);
    }
    EXPECT_EQ(defaults.integerForKey(u"RELEVANT_ACTION_COUNT_VAR3"_s), 3);
}

TEST_F(LibraryScreens, TheListReadsTheFolderWheneverItAppears) {
    ConvertedVideosViewController& list = openList();
    EXPECT_FALSE(list.emptyStateView()->isHidden());
    videoAt(u"a.mp4"_s, 0);
    videoAt(u"b.mp4"_s, 0);
    comeBack();
    EXPECT_TRUE(list.emptyStateView()->isHidden());
    EXPECT_EQ(list.videos(), FileSystem::shared().convertedVideos());
    EXPECT_EQ(list.collectionView()->cell(0)->frame(), QRectF(0, 50, 163, 163));
    EXPECT_EQ(list.collectionView()->cell(1)->frame(), QRectF(187, 50, 163, 163));
    std::filesystem::remove_all(filePath(FileSystem::shared().outputsFolder()));
    comeBack();
    EXPECT_EQ(list.videos().size(), 2);
}

TEST_F(LibraryScreens, AReusedTileShowsItsOldPictureUntilTheNewOneComes) {
    for (int number = 0; number < 20; ++number)
        videoAt(u"%1.mp4"_s.arg(number), 0);
    UICollectionView& view = *openList().collectionView();
    auto* tile = qobject_cast<ConvertedVideoCollectionViewCell*>(view.cell(0));
    ASSERT_TRUE(runLoopUntil([tile] { return !tile->thumbnailImageView()->image().isEmpty(); }));
    const QString before = tile->titleLabel()->text();
    view.setViewport(1000, 350, 724);
    ASSERT_NE(tile->titleLabel()->text(), before);
    EXPECT_FALSE(tile->thumbnailImageView()->image().isEmpty());
}

TEST_F(LibraryScreens, TheGridIsSortedNewestFirstAndCutsOneEnding) {
    videoAt(u"old.mp4"_s, 2);
    videoAt(u"clip.mov"_s, 1);
    videoAt(u"new.mov.mp4"_s, 0);
    std::filesystem::create_symlink("nowhere", filePath(inOutputs(u"undated"_s)));
    VideosViewController& grid = openGrid();
    QStringList titles;
    for (int number = 0; number < 4; ++number) {
        auto* tile = qobject_cast<VideoCollectionViewCell*>(grid.collectionView()->cell(number));
        titles.append(tile->titleLabel()->text());
    }
    EXPECT_EQ(titles, (QStringList{u"new.mp4"_s, u"clip"_s, u"old.mp4"_s, u"undated"_s}));
    EXPECT_EQ(grid.collectionView()->cell(3)->frame(), QRectF(199, 215, 175, 175));
    UIScreen::main().setWindowSize({360, 640});
    EXPECT_EQ(grid.collectionView()->cell(0)->frame().width(), 160);
    UIScreen::main().setWindowSize({390, 844});
}

TEST_F(LibraryScreens, TheGridsMenuSharesAndDeletesAfterAQuestion) {
    videoAt(u"a.mp4"_s, 0);
    VideosViewController& grid = openGrid();
    const auto choose = [&](int index) {
        grid.collectionView()->cell(0)->openMenu({});
        auto& menu = await<UIContextMenuController>();
        EXPECT_EQ(menu.actions().size(), 3);
        menu.press(index);
    };
    choose(0);
    await<UIActivityViewController>();
    window().goBack();
    ASSERT_TRUE(isAtHome());
    choose(2);
    answerDeletion(1);
    EXPECT_EQ(outputs(), QStringList{u"a.mp4"_s});
    EXPECT_TRUE(grid.emptystateView()->isHidden());
    choose(2);
    answerDeletion(0);
    EXPECT_EQ(outputs(), QStringList());
    EXPECT_FALSE(grid.emptystateView()->isHidden());
    EXPECT_EQ(events(), QStringList{u"shared_video"_s});
}

TEST_F(LibraryScreens, TheDetailHasItsToolbarInThePlaceOfTheTabBarUntilItsVideoIsDeleted) {
    videoAt(u"a.mp4.mp4"_s, 0);
    VideosViewController& grid = openGrid();
    grid.collectionView()->cell(0)->tap();
    ASSERT_TRUE(isAtHome());
    EXPECT_EQ(stack(1).barTitle(), u"a"_s);
    EXPECT_TRUE(tabs().isTabBarHidden());
    EXPECT_FALSE(stack(1).isToolbarHidden());
    auto* detail = qobject_cast<VideoDetailViewController*>(stack(1).topViewController());
    ASSERT_NE(detail, nullptr);
    detail->tableView()->setViewport(0, 390, 600);
    EXPECT_EQ(detail->tableView()->contentHeight(), 382);
    EXPECT_EQ(detail->tableView()->headers().value(0).toMap().value(u"frame"_s), QRectF(0, 200, 390, 50));
    auto* info = qobject_cast<VideoInfoCell*>(detail->tableView()->cell(1));
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->frame(), QRectF(0, 250, 390, 132));
    EXPECT_EQ(info->titleLabel()->text(), u"a.mp4.mp4"_s);
    EXPECT_EQ(info->durationLabel()->text(), u"00:00:03"_s);
    EXPECT_EQ(info->resolutionLabel()->text(), resolutionText({1080, 1920}, QLocale::system()));
    detail->deleteTapped();
    answerDeletion(0);
    ASSERT_TRUE(runLoopUntil([this] { return stack(1).isAtRoot(); }));
    EXPECT_TRUE(stack(1).isToolbarHidden());
    EXPECT_FALSE(tabs().isTabBarHidden());
    EXPECT_EQ(outputs(), QStringList());
    EXPECT_FALSE(grid.emptystateView()->isHidden());
    EXPECT_EQ(events(), QStringList());
}
