// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/ConvertedVideo.h"
#include "platform/uikit/UICollectionView.h"
#include "platform/uikit/UIViewController.h"
#include "sources/VideoOptionsViewController.h"

#include <QList>

namespace reelsmith {

/// The library as a list, in the file system's order. Main thread.
class ConvertedVideosViewController : public reelsmith::UIViewController,
                                      public UICollectionViewDataSource,
                                      public UICollectionViewDelegate,
                                      public VideoOptionsViewControllerDelegate {
    Q_OBJECT
    Q_PROPERTY(reelsmith::UICollectionView* collectionView READ collectionView CONSTANT)
    Q_PROPERTY(reelsmith::View* emptyStateView READ emptyStateView CONSTANT)

public:
    ConvertedVideosViewController();

    UICollectionView* collectionView() { return &m_collectionView; }
    View* emptyStateView() { return &m_emptyStateView; } ///< seen while there is no video
    const QList<ConvertedVideo>& videos() const { return m_videos; }

    int collectionViewNumberOfItemsInSection(UICollectionView& view, int section) override;
    CellsView::Cell collectionViewCellForItemAt(UICollectionView& view, const IndexPath& path) override;
    void collectionViewDidSelectItemAt(UICollectionView& view, const IndexPath& path) override;
    void videoDeleted(const ConvertedVideo& video) override;

protected:
    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewDidAppear() override;

private:
    void installLayout();
    void show(const QList<ConvertedVideo>& videos);

    QList<ConvertedVideo> m_videos;
    UICollectionView m_collectionView;
    View m_emptyStateView;
};

} // namespace reelsmith
