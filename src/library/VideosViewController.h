// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/CanShareFiles.h"
#include "library/ConvertedVideo.h"
#include "library/VideoDetailDelegate.h"
#include "platform/uikit/UICollectionView.h"
#include "platform/uikit/UIViewController.h"

#include <QList>

namespace reelsmith {

/// The library as a grid, newest first. Main thread.
class VideosViewController : public reelsmith::UIViewController,
                             public UICollectionViewDataSource,
                             public UICollectionViewDelegate,
                             public VideoDetailDelegate,
                             public CanShareFiles {
    Q_OBJECT
    Q_PROPERTY(reelsmith::UICollectionView* collectionView READ collectionView CONSTANT)
    Q_PROPERTY(reelsmith::View* emptystateView READ emptystateView CONSTANT)

public:
    VideosViewController();

    UICollectionView* collectionView() { return &m_collectionView; }
    View* emptystateView() { return &m_emptystateView; } ///< seen while there is no video
    const QList<ConvertedVideo>& videos() const { return m_videos; }

    int collectionViewNumberOfItemsInSection(UICollectionView& view, int section) override;
    CellsView::Cell collectionViewCellForItemAt(UICollectionView& view, const IndexPath& path) override;
    void collectionViewDidSelectItemAt(UICollectionView& view, const IndexPath& path) override;
    std::optional<UIContextMenuConfiguration>
    collectionViewContextMenuConfigurationForItemAt(UICollectionView& view, const IndexPath& path) override;
    QSizeF collectionViewLayoutSizeForItemAt(UICollectionView& view, const IndexPath& path) override;
    QMarginsF collectionViewLayoutInsetForSectionAt(UICollectionView& view, int section) override;
    qreal collectionViewLayoutMinimumLineSpacingForSectionAt(UICollectionView& view, int section) override;
    qreal collectionViewLayoutMinimumInteritemSpacingForSectionAt(UICollectionView& view,
                                                                  int section) override;
    void videoDeleted(const ConvertedVideo& video) override;

protected:
    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewDidAppear() override;
    UIViewController& sharingScreen() override { return *this; }

private:
    void loadVideos();
    void show(const QList<ConvertedVideo>& videos);
    void confirmDeletion(const ConvertedVideo& video);

    QList<ConvertedVideo> m_videos;
    UICollectionView m_collectionView;
    View m_emptystateView;
};

} // namespace reelsmith
