// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/ScreenFactory.h"

#include "platform/foundation/FatalError.h"
#include "platform/uikit/UIViewController.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>

namespace reelsmith {

ScreenFactory::ScreenFactory(QQmlEngine& engine) : m_engine(engine) {}

ScreenFactory::~ScreenFactory() {
    qDeleteAll(m_components);
}

QQmlComponent& ScreenFactory::component(const QString& name) {
    QQmlComponent*& known = m_components[name];
    if (known == nullptr) {
        const QUrl file(QStringLiteral("qrc:/qt/qml/Reelsmith/Screens/%1.qml").arg(name));
        known = new QQmlComponent(&m_engine, file, QQmlComponent::PreferSynchronous);
    }
    return *known;
}

Result<void> ScreenFactory::load(const QString& name) {
    const QQmlComponent& loaded = component(name);
    if (!loaded.isReady())
        return failure(loaded.errorString().trimmed());
    return {};
}

std::unique_ptr<QQuickItem> ScreenFactory::makeItem(UIViewController& controller) {
    QQmlEngine::setObjectOwnership(&controller, QQmlEngine::CppOwnership);
    QQmlComponent& file = component(controller.interfaceName());
    const QVariantMap properties{{QStringLiteral("controller"), QVariant::fromValue<QObject*>(&controller)}};
    QObject* const made = file.createWithInitialProperties(properties);
    auto* const item = qobject_cast<QQuickItem*>(made);
    if (item == nullptr) {
        const QString text = QStringLiteral("The interface file \"%1\" shows nothing: %2")
                                 .arg(controller.interfaceName(), file.errorString().trimmed());
        fatalError(text.toStdString(), "window/ScreenFactory", __LINE__);
    }
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    return std::unique_ptr<QQuickItem>(item);
}

} // namespace reelsmith
