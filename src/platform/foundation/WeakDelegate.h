// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>

namespace reelsmith {

/// A reference to a delegate that does not keep it: null once the object that implements it is gone. Main
/// thread.
template<typename Interface>
class WeakDelegate {
public:
    WeakDelegate() = default;

    /// `implementer`: an object that is both a QObject and an Interface.
    template<typename Implementer>
    WeakDelegate(Implementer* implementer) : m_object(implementer), m_delegate(implementer) {}

    Interface* get() const { return m_object ? m_delegate : nullptr; }

private:
    QPointer<QObject> m_object;
    Interface* m_delegate = nullptr;
};

} // namespace reelsmith
