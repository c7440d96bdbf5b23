// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/VideoDetailViewController.h"

#include "library/FileSystem.h"
#include "library/VideoDeletion.h"
#include "library/VideoInfoCell.h"
#include "platform/foundation/URLs.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UINavigationController.h"

#include <QDir>
#include <utility>

namespace reelsmith {

namespace {

const QString videoIdentifier = QStringLiteral("VideoCell");
const QString infoIdentifier = QStringLiteral("DetailCell");
constexpr qreal videoHeight = 200;
constexpr qreal infoHeight = 132;
constexpr qreal headerHeight = 50;

// As a user would say it, from the home folder on.
QString folderText(const QUrl& url) {
    const QDir folder = QFileInfo(url.toLocalFile()).dir();
    const QString fromHome = QDir::home().relativeFilePath(folder.path());
    const bool isOutside = fromHome.startsWith(QLatin1String("..")) || QDir::isAbsolutePath(fromHome);
    return (isOutside ? folder.path() : fromHome)
        .split(QLatin1Char('/'), Qt::SkipEmptyParts)
        .join(QStringLiteral(" / "));
}

} // namespace

VideoDetailViewController::VideoDetailViewController(ConvertedVideo video) : m_video(std::move(video)) {}

void VideoDetailViewController::viewDidLoad() {
    setToolbarHidden(true, Animated::No);
    setTitle(m_video.name().remove(QLatin1String(".mp4")));
    m_folderLabel.setText(folderText(m_video.url()));
    m_tableView.registerClass<VideoTableViewCell>(videoIdentifier);
    m_tableView.registerClass<VideoInfoCell>(infoIdentifier);
    m_tableView.setSectionHeaderHeight(headerHeight);
    m_tableView.setDelegate(this);
    m_tableView.setDataSource(this);
}

void VideoDetailViewController::viewDidAppear() {
    std::vector<std::unique_ptr<UIBarButtonItem>> items;
    items.push_back(std::make_unique<UIBarButtonItem>(UIBarButtonItem::Action, [this] { shareTapped(); }));
    items.push_back(std::make_unique<UIBarButtonItem>(UIBarButtonItem::FlexibleSpace));
    items.push_back(std::make_unique<UIBarButtonItem>(UIBarButtonItem::Trash, [this] { deleteTapped(); }));
    setToolbarItems(std::move(items));
    setToolbarHidden(false, Animated::Yes);
}

void VideoDetailViewController::viewWillDisappear() {
    setToolbarHidden(true, Animated::Yes);
}

void VideoDetailViewController::setToolbarHidden(bool isHidden, Animated animated) {
    if (UINavigationController* stack = navigationController())
        stack->setToolbarHidden(isHidden, animated);
}

void VideoDetailViewController::shareTapped() {
    share(m_video.url());
}

void VideoDetailViewController::deleteTapped() {
    present(videoDeletionAlert([self = QPointer(this)] {
                if (self)
                    self->deleteVideo();
            }),
            Animated::Yes);
}

void VideoDetailViewController::deleteVideo() {
    FileSystem::shared().deleteVideo(m_video.url());
    if (UINavigationController* stack = navigationController())
        stack->popViewController(*this, Animated::Yes);
    if (VideoDetailDelegate* delegate = m_delegate.get())
        delegate->videoDeleted(m_video);
}

int VideoDetailViewController::tableViewNumberOfSections(UITableView&) {
    return 2;
}

int VideoDetailViewController::tableViewNumberOfRowsInSection(UITableView&, int) {
    return 1;
}

QString VideoDetailViewController::tableViewTitleForHeaderInSection(UITableView&, int section) {
    return section == 0 ? QString() : QStringLiteral("Video details");
}

qreal VideoDetailViewController::tableViewHeightForRowAt(UITableView&, const IndexPath& path) {
    return path.section == 0 ? videoHeight : infoHeight;
}

CellsView::Cell VideoDetailViewController::tableViewCellForRowAt(UITableView&, const IndexPath& path) {
    CellsView::Cell cell = path.section == 0 ? videoCell() : infoCell();
    return cell ? std::move(cell) : std::make_unique<UITableViewCell>();
}

CellsView::Cell VideoDetailViewController::videoCell() {
    CellsView::Cell cell = m_tableView.dequeueReusableCell(videoIdentifier);
    if (auto* const video = qobject_cast<VideoTableViewCell*>(cell.get())) {
        m_video.thumbnail([video = QPointer(video)](const UIImage& image) {
            if (video)
                video->thumbImageView()->setImage(image);
        });
        video->playBG()->setClipsToBounds(false);
        video->playBG()->setShadow({QStringLiteral("black"), {0, 0}, 10, 1});
        video->setDelegate(this);
    }
    return cell;
}

// Waits for the file to be read.
CellsView::Cell VideoDetailViewController::infoCell() {
    CellsView::Cell cell = m_tableView.dequeueReusableCell(infoIdentifier);
    if (auto* const info = qobject_cast<VideoInfoCell*>(cell.get())) {
        info->titleLabel()->setText(m_video.name());
        info->durationLabel()->setText(m_video.durationText());
        if (const std::optional<QString> resolution = m_video.resolutionText())
            info->resolutionLabel()->setText(*resolution);
    }
    return cell;
}

} // namespace reelsmith
