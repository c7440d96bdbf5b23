// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/ConvertedVideosViewController.h"

#include "library/ConvertedVideoCollectionViewCell.h"
#include "library/FileSystem.h"
#include "library/LibraryReview.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UITabBarController.h"

namespace reelsmith {

namespace {

const QString cellIdentifier = QStringLiteral("convertedVideosCell");
constexpr qreal topInset = 50;

} // namespace

ConvertedVideosViewController::ConvertedVideosViewController() {
    m_emptyStateView.setHidden(true);
}

void ConvertedVideosViewController::viewDidLoad() {
    setTitle(QStringLiteral("Converted Videos"));
    installLayout();
    connect(&UIScreen::main(), &UIScreen::sizeChanged, this, &ConvertedVideosViewController::installLayout);
    m_collectionView.registerClass<ConvertedVideoCollectionViewCell>(cellIdentifier);
    m_collectionView.setDelegate(this);
    m_collectionView.setDataSource(this);
}

void ConvertedVideosViewController::installLayout() {
    const qreal side = UIScreen::main().size().width() * 0.5 - 32;
    UICollectionViewFlowLayout layout;
    layout.sectionInset = {0, topInset, 0, 0};
    layout.itemSize = {side, side};
    m_collectionView.setCollectionViewLayout(layout);
}

void ConvertedVideosViewController::viewWillAppear() {
    if (const auto videos = FileSystem::shared().convertedVideos())
        show(*videos);
}

void ConvertedVideosViewController::viewDidAppear() {
    LibraryReview::shared().screenDidAppear(*this);
}

void ConvertedVideosViewController::show(const QList<ConvertedVideo>& videos) {
    m_videos = videos;
    m_collectionView.reloadData();
    m_emptyStateView.setHidden(!m_videos.isEmpty());
}

int ConvertedVideosViewController::collectionViewNumberOfItemsInSection(UICollectionView&, int) {
    return static_cast<int>(m_videos.size());
}

CellsView::Cell ConvertedVideosViewController::collectionViewCellForItemAt(UICollectionView& view,
                                                                           const IndexPath& path) {
    CellsView::Cell cell = view.dequeueReusableCell(cellIdentifier);
    auto* const tile = qobject_cast<ConvertedVideoCollectionViewCell*>(cell.get());
    if (tile == nullptr)
        return std::make_unique<UICollectionViewCell>();
    const ConvertedVideo& video = m_videos.at(path.item);
    tile->titleLabel()->setText(video.name());
    tile->showThumbnail(video);
    return cell;
}

void ConvertedVideosViewController::collectionViewDidSelectItemAt(UICollectionView&, const IndexPath& path) {
    UINavigationController* stack = navigationController();
    UITabBarController* tabs = stack == nullptr ? nullptr : stack->tabBarController();
    if (tabs == nullptr)
        return;
    auto options = std::make_unique<VideoOptionsViewController>(m_videos.at(path.item));
    options->setDelegate(this);
    tabs->present(std::move(options), Animated::Yes);
}

void ConvertedVideosViewController::videoDeleted(const ConvertedVideo& video) {
    QList<ConvertedVideo> remaining = m_videos;
    remaining.removeAll(video);
    show(remaining);
}

} // namespace reelsmith
