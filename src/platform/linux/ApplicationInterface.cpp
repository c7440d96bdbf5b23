// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/ApplicationInterface.h"

#include "platform/linux/SingleInstance.h"

namespace reelsmith {

namespace {

// Where the window's toolkit looks for the right to come to the front.
void takeToken(const QVariantMap& platformData) {
    const QString token = platformData.value(QStringLiteral("activation-token")).toString();
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

} // namespace

ApplicationInterface::ApplicationInterface(SingleInstance& instance)
    : QDBusAbstractAdaptor(&instance), m_instance(instance) {}

void ApplicationInterface::Activate(const QVariantMap& platformData) {
    takeToken(platformData);
    emit m_instance.activated();
}

void ApplicationInterface::Open(const QStringList& urls, const QVariantMap& platformData) {
    takeToken(platformData);
    QList<QUrl> files;
    for (const QString& url : urls)
        files.append(QUrl::fromEncoded(url.toUtf8()));
    emit m_instance.opened(files);
}

void ApplicationInterface::ActivateAction(const QString&, const QVariantList&, const QVariantMap&) {}

} // namespace reelsmith
