// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/WeakDelegate.h"
#include "platform/screens/DocumentTypes.h"
#include "platform/screens/UIImagePickerControllerDelegate.h"
#include "platform/screens/VideoCollection.h"
#include "platform/screens/VideoPreview.h"
#include "platform/uikit/UICollectionView.h"
#include "platform/uikit/UIViewController.h"

#include <QCache>
#include <QStringList>

namespace reelsmith {

/// The platform's photo library, for picking one movie. It stays until its delegate dismisses it. Main
/// thread.
class UIImagePickerController : public reelsmith::UIViewController,
                                public UICollectionViewDataSource,
                                public UICollectionViewDelegate {
    Q_OBJECT
    Q_PROPERTY(reelsmith::UICollectionView* collectionView READ collectionView CONSTANT)
    Q_PROPERTY(reelsmith::View* emptyStateView READ emptyStateView CONSTANT)
    Q_PROPERTY(reelsmith::View* activityIndicatorView READ activityIndicatorView CONSTANT)

public:
    enum class SourceType { photoLibrary };

    /// Looks for movies where the user keeps them, or in folders named here.
    explicit UIImagePickerController(std::vector<std::filesystem::path> folders = VideoCollection::folders());

    void setSourceType(SourceType type) { m_sourceType = type; }
    SourceType sourceType() const { return m_sourceType; }
    /// What may be picked, by the platform's names. There are only movies here: nothing is offered without
    /// kUTTypeMovie.
    void setMediaTypes(const QStringList& types) { m_mediaTypes = types; }
    void setDelegate(const WeakDelegate<UIImagePickerControllerDelegate>& delegate) { m_delegate = delegate; }

    UICollectionView* collectionView() { return &m_collectionView; }
    View* emptyStateView() { return &m_emptyStateView; }
    View* activityIndicatorView() {
        return &m_activityIndicatorView;
    } ///< hidden unless folders are being read

    /// What "Cancel" does.
    Q_INVOKABLE void cancelTapped();
    bool goBack() override;

    int collectionViewNumberOfItemsInSection(UICollectionView& view, int section) override;
    CellsView::Cell collectionViewCellForItemAt(UICollectionView& view, const IndexPath& path) override;
    void collectionViewDidSelectItemAt(UICollectionView& view, const IndexPath& path) override;
    QSizeF collectionViewLayoutSizeForItemAt(UICollectionView& view, const IndexPath& path) override;

protected:
    void viewDidLoad() override;
    void viewWillAppear() override;

private:
    void show(const QList<QUrl>& videos);

    SourceType m_sourceType = SourceType::photoLibrary;
    QStringList m_mediaTypes;
    WeakDelegate<UIImagePickerControllerDelegate> m_delegate;
    VideoCollection m_collection;
    QList<QUrl> m_videos;
    QCache<QUrl, VideoPreview::Facts> m_known;
    UICollectionView m_collectionView;
    View m_emptyStateView;
    View m_activityIndicatorView;
};

} // namespace reelsmith
