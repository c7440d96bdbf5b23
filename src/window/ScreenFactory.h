// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/InterfaceLoader.h"

#include <QHash>
#include <memory>

class QQmlComponent;
class QQmlEngine;
class QQuickItem;

namespace reelsmith {

class UIViewController;

/// Makes the items that show screens, from the interface files of the resources. Main thread.
class ScreenFactory : public InterfaceLoader {
public:
    explicit ScreenFactory(QQmlEngine& engine);
    ~ScreenFactory() override;

    Result<void> load(const QString& name) override;

    /// A new item, the caller's own, that shows `controller`; its interface file has been loaded.
    std::unique_ptr<QQuickItem> makeItem(UIViewController& controller);

private:
    QQmlComponent& component(const QString& name);

    QQmlEngine& m_engine;
    QHash<QString, QQmlComponent*> m_components;
};

} // namespace reelsmith
