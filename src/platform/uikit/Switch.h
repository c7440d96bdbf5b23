// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/View.h"

namespace reelsmith {

/// Something that is on or off.
class Switch : public reelsmith::View {
    Q_OBJECT
    Q_PROPERTY(bool isOn READ isOn WRITE setOn NOTIFY changed)

public:
    using View::View;

    bool isOn() const { return m_isOn; }
    void setOn(bool on) { assign(m_isOn, on); }

private:
    bool m_isOn = false;
};

} // namespace reelsmith
