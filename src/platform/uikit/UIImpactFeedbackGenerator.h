// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/Haptics.h"

#include <memory>
#include <utility>

namespace reelsmith {

/// Lets the user feel that something was touched. Main thread.
class UIImpactFeedbackGenerator {
public:
    enum class Style { Light = 0, Medium = 1, Heavy = 2 };

    explicit UIImpactFeedbackGenerator(Style style) : m_style(style) {}

    Style style() const { return m_style; }

    /// Says that an impact is near. Devices here are always ready.
    void prepare() const {}

    /// Devices here know one strength, whatever the style.
    void impactOccurred() const { haptics()->impactOccurred(); }

    /// What all of them use from now on; nothing is felt before.
    static void setHaptics(std::unique_ptr<Haptics> backend) { haptics() = std::move(backend); }

private:
    static std::unique_ptr<Haptics>& haptics() {
        static std::unique_ptr<Haptics> shared = std::make_unique<Haptics>();
        return shared;
    }

    Style m_style;
};

} // namespace reelsmith
