// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/UIImagePickerController.h"

#include "platform/screens/UIImagePickerCell.h"

#include <utility>

namespace reelsmith {

namespace {

const QString cellIdentifier = QStringLiteral("video");
constexpr int columns = 3;
constexpr qreal gap = 3;
constexpr int mostKnownKilobytes = 32 * 1024;

} // namespace

UIImagePickerController::UIImagePickerController(std::vector<std::filesystem::path> folders)
    : m_collection(std::move(folders)), m_known(mostKnownKilobytes) {
    m_emptyStateView.setHidden(true);
    m_activityIndicatorView.setHidden(true);
}

void UIImagePickerController::viewDidLoad() {
    setTitle(QStringLiteral("Videos"));
    UICollectionViewFlowLayout layout;
    layout.minimumLineSpacing = gap;
    layout.minimumInteritemSpacing = gap;
    m_collectionView.setCollectionViewLayout(layout);
    m_collectionView.registerClass<UIImagePickerCell>(cellIdentifier);
    m_collectionView.setDataSource(this);
    m_collectionView.setDelegate(this);
}

void UIImagePickerController::viewWillAppear() {
    if (!m_mediaTypes.contains(kUTTypeMovie)) {
        show({});
        return;
    }
    m_activityIndicatorView.setHidden(!m_videos.isEmpty());
    m_collection.read([this](const QList<QUrl>& videos) { show(videos); });
}

void UIImagePickerController::show(const QList<QUrl>& videos) {
    m_videos = videos;
    m_collectionView.reloadData();
    m_emptyStateView.setHidden(!m_videos.isEmpty());
    m_activityIndicatorView.setHidden(true);
}

int UIImagePickerController::collectionViewNumberOfItemsInSection(UICollectionView&, int) {
    return static_cast<int>(m_videos.size());
}

QSizeF UIImagePickerController::collectionViewLayoutSizeForItemAt(UICollectionView& view, const IndexPath&) {
    const qreal side = (view.width() - (columns - 1) * gap) / columns;
    return {side, side};
}

CellsView::Cell UIImagePickerController::collectionViewCellForItemAt(UICollectionView& view,
                                                                     const IndexPath& path) {
    CellsView::Cell cell = view.dequeueReusableCell(cellIdentifier);
    const QUrl& url = m_videos.at(path.item);
    qobject_cast<UIImagePickerCell*>(cell.get())
        ->showVideo(url, m_known.object(url), [this, url](const VideoPreview::Facts& facts) {
            const auto bytes = facts.picture.cgImage().pixels.size();
            m_known.insert(url, new VideoPreview::Facts(facts), static_cast<int>(bytes / 1024) + 1);
        });
    return cell;
}

void UIImagePickerController::collectionViewDidSelectItemAt(UICollectionView&, const IndexPath& path) {
    UIImagePickerControllerDelegate* delegate = m_delegate.get();
    if (delegate == nullptr || isBeingDismissed())
        return;
    delegate->imagePickerControllerDidFinishPickingMediaWithInfo(
        *this, {{UIImagePickerControllerMediaURL, m_videos.at(path.item)}});
}

void UIImagePickerController::cancelTapped() {
    UIImagePickerControllerDelegate* delegate = m_delegate.get();
    if (delegate != nullptr && !isBeingDismissed())
        delegate->imagePickerControllerDidCancel(*this);
}

bool UIImagePickerController::goBack() {
    cancelTapped();
    return true;
}

} // namespace reelsmith
