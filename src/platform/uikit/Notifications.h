// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <utility>

namespace reelsmith {

/// What a user who is elsewhere is told.
struct UserNotification {
    enum class Weight {
        Status, ///< how something stands: there to be looked at
        Event,  ///< something has happened: calls attention to itself
    };

    QString title;
    QString body;
    Weight weight = Weight::Event;

    bool operator==(const UserNotification&) const = default;
};

/// The desktop's notifications, of which the application has one at a time. Main thread. This one tells
/// nobody anything.
class Notifications {
public:
    virtual ~Notifications() = default;

    /// Takes the place of what was shown before.
    virtual void show(const UserNotification& /*notification*/) {}
    virtual void withdraw() {}

    /// Called when the user taps what is shown.
    void setOnTapped(std::function<void()> onTapped) { m_onTapped = std::move(onTapped); }

protected:
    void reportTap() const {
        if (m_onTapped)
            m_onTapped();
    }

private:
    std::function<void()> m_onTapped;
};

} // namespace reelsmith
