// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Appearance.h"
#include "window/IconProvider.h"
#include "window/ShadowProvider.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTimer>
#include <QtQml/QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(ReelsmithPlugin)
Q_IMPORT_QML_PLUGIN(Reelsmith_PartsPlugin)

using namespace reelsmith;

/// gallery PAGE.qml PICTURE.png WIDTH HEIGHT [dark] [textScale]: what a page of parts looks like in a window
/// of that size. The picture may be "-": the page is then shown until its window is closed.
int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() < 5)
        qFatal("gallery PAGE.qml PICTURE.png WIDTH HEIGHT [dark] [textScale]");
    const QSize size(arguments[3].toInt(), arguments[4].toInt());

    QQuickView view;
    view.engine()->addImportPath("qrc:/qt/qml");
    view.engine()->addImageProvider("icon", new IconProvider);
    view.engine()->addImageProvider("shadow", new ShadowProvider);
    Appearance* const appearance = &Appearance::of(*view.engine());
    appearance->setDark(arguments.contains("dark"));
    appearance->setTextScale(qMax(1.0, arguments.value(arguments.size() > 6 ? 6 : 5).toDouble()));
    appearance->setWindowSize(size);
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.resize(size);
    view.setSource(QUrl::fromLocalFile(arguments[1]));
    if (view.status() != QQuickView::Ready)
        return 1;
    view.show();
    if (arguments[2] == "-")
        return application.exec();
    // Once what comes in little by little has come.
    QTimer::singleShot(600, &view, [&] { application.exit(view.grabWindow().save(arguments[2]) ? 0 : 1); });
    return application.exec();
}
