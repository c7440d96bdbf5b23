// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/UIViewController.h"

#include <QStringList>

namespace reelsmith {

/// The library as a grid.
class VideosViewController : public reelsmith::UIViewController {
    Q_OBJECT
    Q_PROPERTY(QStringList names READ names NOTIFY namesChanged)

public:
    /// Of the converted files, in the file system's order.
    const QStringList& names() const { return m_names; }

signals:
    void namesChanged();

protected:
    void viewDidLoad() override;
    void viewWillAppear() override;

private:
    QStringList m_names;
};

} // namespace reelsmith
