// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/InstantiatiableXibProtocol.h"

#include "platform/foundation/FatalError.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIWindow.h"

namespace reelsmith {

std::unique_ptr<ContentView> InstantiatiableXibProtocol::loadContentView(const QMetaObject& runtimeClass) {
    const QString name = QString::fromLatin1(runtimeClass.className()).section(QStringLiteral("::"), -1);
    if (const UIWindow* window = UIApplication::shared().keyWindow()) {
        if (const Result<void> loaded = window->interfaceLoader().load(name); !loaded) {
            const QString text = QStringLiteral("The interface file \"%1\" cannot be loaded: %2")
                                     .arg(name, loaded.error().localizedDescription);
            fatalError(text.toStdString(), "settings/InstantiatiableXibProtocol", __LINE__);
        }
    }
    return std::make_unique<ContentView>(name);
}

} // namespace reelsmith
