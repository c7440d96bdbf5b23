// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/View.h"

namespace reelsmith {

/// Something to press; what a press does is the controller's, and the interface file calls it.
class Button : public reelsmith::View {
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY changed)

public:
    using View::View;

    const QString& title() const { return m_title; }
    void setTitle(const QString& title) { assign(m_title, title); }

private:
    QString m_title;
};

} // namespace reelsmith
