// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/View.h"
#include "settings/InstantiatiableXibProtocol.h"

namespace reelsmith {

/// A view whose looks are an interface file named after its class, wherever it stands. Main thread.
class InstantiatiableXib : public reelsmith::View, public InstantiatiableXibProtocol {
    Q_OBJECT
    Q_PROPERTY(reelsmith::ContentView* view READ view CONSTANT)

public:
    ContentView* view() const { return m_view.get(); } ///< fills this view

protected:
    /// `runtimeClass`: the class that is being made. An interface file that does not load is fatal.
    explicit InstantiatiableXib(const QMetaObject& runtimeClass) : m_view(loadContentView(runtimeClass)) {}

private:
    std::unique_ptr<ContentView> m_view;
};

} // namespace reelsmith
