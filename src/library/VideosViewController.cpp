// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/VideosViewController.h"

#include "library/FileSystem.h"
#include "library/LibraryReview.h"
#include "library/VideoCollectionViewCell.h"
#include "library/VideoDeletion.h"
#include "library/VideoDetailViewController.h"
#include "library/VideoPlayer.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UIScreen.h"

namespace reelsmith {

namespace {

const QString cellIdentifier = QStringLiteral("VideoCollectionViewCell");

} // namespace

VideosViewController::VideosViewController() {
    m_emptystateView.setHidden(true);
}

void VideosViewController::viewDidLoad() {
    setTitle(QStringLiteral("Converted Videos"));
    loadVideos();
    m_collectionView.registerClass<VideoCollectionViewCell>(cellIdentifier);
    m_collectionView.setDelegate(this);
    m_collectionView.setDataSource(this);
    connect(&UIScreen::main(), &UIScreen::sizeChanged, &m_collectionView,
            &UICollectionView::invalidateLayout);
}

void VideosViewController::viewWillAppear() {
    if (UINavigationController* stack = navigationController())
        stack->setNavigationBarHidden(false, Animated::Yes);
    loadVideos();
}

void VideosViewController::viewDidAppear() {
    LibraryReview::shared().screenDidAppear(*this);
}

void VideosViewController::loadVideos() {
    if (const auto videos = FileSystem::shared().convertedVideosNewestFirst())
        show(*videos);
}

void VideosViewController::show(const QList<ConvertedVideo>& videos) {
    m_videos = videos;
    m_collectionView.reloadData();
    m_emptystateView.setHidden(!m_videos.isEmpty());
}

int VideosViewController::collectionViewNumberOfItemsInSection(UICollectionView&, int) {
    return static_cast<int>(m_videos.size());
}

CellsView::Cell VideosViewController::collectionViewCellForItemAt(UICollectionView& view,
                                                                  const IndexPath& path) {
    CellsView::Cell cell = view.dequeueReusableCell(cellIdentifier);
    auto* const tile = qobject_cast<VideoCollectionViewCell*>(cell.get());
    if (tile == nullptr)
        return std::make_unique<UICollectionViewCell>();
    tile->configure(m_videos.at(path.item));
    return cell;
}

void VideosViewController::collectionViewDidSelectItemAt(UICollectionView&, const IndexPath& path) {
    UINavigationController* stack = navigationController();
    if (stack == nullptr || stack->topViewController() != this)
        return;
    auto detail = std::make_unique<VideoDetailViewController>(m_videos.at(path.item));
    detail->setHidesBottomBarWhenPushed(true);
    detail->setDelegate(this);
    stack->pushViewController(std::move(detail), Animated::Yes);
}

std::optional<UIContextMenuConfiguration>
VideosViewController::collectionViewContextMenuConfigurationForItemAt(UICollectionView&,
                                                                      const IndexPath& path) {
    // Each action does nothing once the screen is gone.
    const auto action = [this, video = m_videos.at(path.item)](const QString& title, const QString& image,
                                                               UIAction::Style style, const auto& effect) {
        return UIAction{title, image, style, [self = QPointer(this), video, effect] {
                            if (self)
                                effect(*self, video);
                        }};
    };
    using Self = VideosViewController;
    const auto share = [](Self& self, const ConvertedVideo& video) { self.share(video.url()); };
    const auto play = [](Self& self, const ConvertedVideo& video) { VideoPlayer::play(video.url(), self); };
    const auto remove = [](Self& self, const ConvertedVideo& video) { self.confirmDeletion(video); };
    return UIContextMenuConfiguration{
        {},
        {action(QStringLiteral("Share"), QStringLiteral("square.and.arrow.up"), UIAction::Style::Normal,
                share),
         action(QStringLiteral("Play"), QStringLiteral("play"), UIAction::Style::Normal, play),
         action(QStringLiteral("Delete"), QStringLiteral("trash"), UIAction::Style::Destructive, remove)}};
}

void VideosViewController::confirmDeletion(const ConvertedVideo& video) {
    present(videoDeletionAlert([self = QPointer(this), video] {
                if (!self)
                    return;
                FileSystem::shared().deleteVideo(video.url());
                self->videoDeleted(video);
            }),
            Animated::Yes);
}

void VideosViewController::videoDeleted(const ConvertedVideo& video) {
    QList<ConvertedVideo> remaining = m_videos;
    remaining.removeAll(video);
    show(remaining);
}

QSizeF VideosViewController::collectionViewLayoutSizeForItemAt(UICollectionView&, const IndexPath&) {
    const qreal side = UIScreen::main().size().width() * 0.5 - 16 - 4;
    return {side, side};
}

QMarginsF VideosViewController::collectionViewLayoutInsetForSectionAt(UICollectionView&, int) {
    return {16, 32, 16, 0};
}

qreal VideosViewController::collectionViewLayoutMinimumLineSpacingForSectionAt(UICollectionView&, int) {
    return 8;
}

qreal VideosViewController::collectionViewLayoutMinimumInteritemSpacingForSectionAt(UICollectionView&, int) {
    return 8;
}

} // namespace reelsmith
