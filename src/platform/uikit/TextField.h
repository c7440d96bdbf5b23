// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/View.h"

#include <optional>

namespace reelsmith {

/// One line of text that the user edits.
class TextField : public reelsmith::View {
    Q_OBJECT
    Q_PROPERTY(QString text READ displayedText WRITE setText NOTIFY changed)

public:
    using View::View;

    const std::optional<QString>& text() const { return m_text; } ///< none: never had any
    QString displayedText() const { return m_text.value_or(QString()); }
    void setText(const QString& text) { assign(m_text, std::optional(text)); }

private:
    std::optional<QString> m_text;
};

} // namespace reelsmith
