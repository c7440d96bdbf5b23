// SPDX-License-Identifier: GPL-3.0-or-later
//
// An empty window: what any Qt Quick application takes to show something.
#include <QGuiApplication>
#include <QQmlApplicationEngine>

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine(QUrl("qrc:/qt/qml/Bare/Bare.qml"));
    return engine.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}
