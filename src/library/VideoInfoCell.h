// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/Label.h"
#include "platform/uikit/UITableViewCell.h"

namespace reelsmith {

/// What is known about a video.
class VideoInfoCell : public reelsmith::UITableViewCell {
    Q_OBJECT
    Q_PROPERTY(reelsmith::Label* titleLabel READ titleLabel CONSTANT)
    Q_PROPERTY(reelsmith::Label* durationLabel READ durationLabel CONSTANT)
    Q_PROPERTY(reelsmith::Label* resolutionLabel READ resolutionLabel CONSTANT)

public:
    VideoInfoCell() { m_resolutionLabel.setText(QStringLiteral("–")); }

    Label* titleLabel() { return &m_titleLabel; }
    Label* durationLabel() { return &m_durationLabel; }
    Label* resolutionLabel() { return &m_resolutionLabel; } ///< a dash where nobody has said more

private:
    Label m_titleLabel;
    Label m_durationLabel;
    Label m_resolutionLabel;
};

} // namespace reelsmith
