// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Appearance.h"

#include <QQmlComponent>
#include <QQmlEngine>

namespace reelsmith {

Appearance& Appearance::of(QQmlEngine& engine) {
    // An engine knows the types of a module only once something has imported it.
    QQmlComponent(&engine).setData("import QtQml\nimport Reelsmith\nQtObject {}", QUrl());
    auto* appearance = engine.singletonInstance<Appearance*>(qmlTypeId("Reelsmith", 1, 0, "Appearance"));
    if (appearance == nullptr)
        qFatal("The QML module Reelsmith is not where the engine looks for it");
    return *appearance;
}

} // namespace reelsmith
