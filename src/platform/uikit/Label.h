// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/View.h"

namespace reelsmith {

/// A text on the screen.
class Label : public reelsmith::View {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)

public:
    using View::View;

    const QString& text() const { return m_text; }
    void setText(const QString& text) { assign(m_text, text); }

private:
    QString m_text;
};

} // namespace reelsmith
