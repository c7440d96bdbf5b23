// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/View.h"

namespace reelsmith {

/// A bar that fills from left to right.
class ProgressView : public reelsmith::View {
    Q_OBJECT
    Q_PROPERTY(qreal progress READ progress NOTIFY changed)
    Q_PROPERTY(bool isIndeterminate READ isIndeterminate NOTIFY changed)

public:
    using View::View;

    qreal progress() const { return m_progress; } ///< 0…1
    void setProgress(qreal progress) { assign(m_progress, progress); }

    /// Something goes on, and nobody knows how far it has come.
    bool isIndeterminate() const { return m_isIndeterminate; }
    void setIndeterminate(bool indeterminate) { assign(m_isIndeterminate, indeterminate); }

private:
    qreal m_progress = 0;
    bool m_isIndeterminate = false;
};

} // namespace reelsmith
