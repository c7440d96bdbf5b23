// SPDX-License-Identifier: GPL-3.0-or-later
#include "Stage.h"

#include "window/IconProvider.h"
#include "window/ShadowProvider.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>
#include <stdexcept>

namespace reelsmith {

Stage::Stage(const QByteArray& qml, QSize size) {
    m_view.engine()->addImportPath("qrc:/qt/qml");
    m_view.engine()->addImageProvider("icon", new IconProvider);
    m_view.engine()->addImageProvider("shadow", new ShadowProvider);
    appearance().setDurationsScale(0);
    appearance().setWindowSize(size);
    m_view.setResizeMode(QQuickView::SizeRootObjectToView);
    m_view.resize(size);

    QQmlComponent component(m_view.engine());
    component.setData("import QtQuick\nimport Reelsmith.Parts\n" + qml, QUrl());
    QObject* const root = component.create();
    if (root == nullptr)
        throw std::runtime_error(component.errorString().toStdString());
    m_view.setContent({}, nullptr, root);
    m_view.show();
    m_view.requestActivate();
    if (!QTest::qWaitForWindowActive(&m_view))
        throw std::runtime_error("The window does not get the focus");
}

QQuickItem& Stage::item(const char* name) {
    auto* const item = m_view.rootObject()->findChild<QQuickItem*>(name);
    if (item == nullptr)
        throw std::runtime_error(std::string("There is no item ") + name);
    return *item;
}

QRectF Stage::place(const char* name) {
    const QQuickItem& found = item(name);
    // The bounding rectangle of a text field is that of its letters.
    return found.mapRectToScene({QPointF(), found.size()});
}

void Stage::resize(QSize size) {
    appearance().setWindowSize(size);
    m_view.resize(size);
    QCoreApplication::processEvents();
}

void Stage::click(QPointF place) {
    QTest::mouseClick(&m_view, Qt::LeftButton, {}, place.toPoint());
}

void Stage::press(Qt::Key key) {
    QTest::keyClick(&m_view, key);
}

} // namespace reelsmith
