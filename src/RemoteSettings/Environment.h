// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

namespace reelsmith {

/// Where a build is used.
enum class Environment { dev, appStore };

/// A value with candidates for several environments; the first candidate holds.
template<typename T>
class EnvironmentValue {
public:
    EnvironmentValue(T first, const T& /*second*/) : m_value(std::move(first)) {}
    EnvironmentValue(T first, const T& /*second*/, const T& /*third*/) : m_value(std::move(first)) {}

    const T& value() const { return m_value; }

private:
    T m_value;
};

} // namespace reelsmith
