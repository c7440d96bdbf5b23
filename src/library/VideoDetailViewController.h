// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/CanShareFiles.h"
#include "library/VideoDetailDelegate.h"
#include "library/VideoTableViewCell.h"
#include "platform/uikit/Label.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UIViewController.h"

namespace reelsmith {

/// One video of the library: its picture, to be played, and what is known about it. Main thread.
class VideoDetailViewController : public reelsmith::UIViewController,
                                  public UITableViewDataSource,
                                  public UITableViewDelegate,
                                  public VideoCellDelegate,
                                  public CanShareFiles {
    Q_OBJECT
    Q_PROPERTY(reelsmith::UITableView* tableView READ tableView CONSTANT)
    Q_PROPERTY(reelsmith::Label* folderLabel READ folderLabel CONSTANT)

public:
    explicit VideoDetailViewController(ConvertedVideo video);

    UITableView* tableView() { return &m_tableView; }
    Label* folderLabel() { return &m_folderLabel; } ///< where the file is
    void setDelegate(const WeakDelegate<VideoDetailDelegate>& delegate) { m_delegate = delegate; }

    void shareTapped();
    /// Asks, deletes, leaves, and tells the delegate.
    void deleteTapped();

    int tableViewNumberOfSections(UITableView& table) override;
    int tableViewNumberOfRowsInSection(UITableView& table, int section) override;
    QString tableViewTitleForHeaderInSection(UITableView& table, int section) override;
    CellsView::Cell tableViewCellForRowAt(UITableView& table, const IndexPath& path) override;
    qreal tableViewHeightForRowAt(UITableView& table, const IndexPath& path) override;
    const ConvertedVideo& video() const override { return m_video; }
    UIViewController& presentingScreen() override { return *this; }

protected:
    void viewDidLoad() override;
    void viewDidAppear() override;
    void viewWillDisappear() override;
    UIViewController& sharingScreen() override { return *this; }

private:
    CellsView::Cell videoCell();
    CellsView::Cell infoCell();
    void deleteVideo();
    void setToolbarHidden(bool isHidden, Animated animated);

    const ConvertedVideo m_video;
    WeakDelegate<VideoDetailDelegate> m_delegate;
    UITableView m_tableView;
    Label m_folderLabel;
};

} // namespace reelsmith
