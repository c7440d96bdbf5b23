// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/Label.h"
#include "platform/uikit/UITableViewCell.h"

namespace reelsmith {

/// One folder or document in the document picker's own list.
class UIDocumentPickerCell : public reelsmith::UITableViewCell {
    Q_OBJECT
    Q_PROPERTY(reelsmith::Label* nameLabel READ nameLabel CONSTANT)
    Q_PROPERTY(reelsmith::Label* detailLabel READ detailLabel CONSTANT)
    Q_PROPERTY(bool isFolder READ isFolder NOTIFY changed)

public:
    Label* nameLabel() { return &m_nameLabel; }
    Label* detailLabel() { return &m_detailLabel; }

    bool isFolder() const { return m_isFolder; }
    void setFolder(bool isFolder) { assign(m_isFolder, isFolder); }

private:
    Label m_nameLabel;
    Label m_detailLabel;
    bool m_isFolder = false;
};

} // namespace reelsmith
