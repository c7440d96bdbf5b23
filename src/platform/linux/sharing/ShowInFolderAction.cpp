// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/sharing/ShowInFolderAction.h"

#include "platform/linux/HandedFile.h"
#include "platform/linux/MimeHandlers.h"
#include "platform/linux/bus/BusCall.h"
#include "platform/linux/bus/BusServices.h"

#include <utility>

namespace reelsmith {

namespace {

const QString fileManager = QStringLiteral("org.freedesktop.FileManager1");

} // namespace

void ShowInFolderAction::findOut(std::function<void(bool isThere)> answer) {
    busservices::ask(m_bus, fileManager, &m_portal, [this, answer = std::move(answer)](bool isThere) {
        if (isThere)
            answer(true);
        else if (mimehandlers::isAnyFor(QStringLiteral("inode/directory")))
            m_portal.ask(answer);
        else
            answer(false);
    });
}

void ShowInFolderAction::perform(const QUrl& file, Completion completion) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(fileManager, QStringLiteral("/org/freedesktop/FileManager1"),
                                       fileManager, QStringLiteral("ShowItems"));
    call << QStringList{QString::fromLatin1(file.toEncoded())} << QString();
    cancel();
    m_call = std::make_unique<QObject>();
    m_completion = std::move(completion);
    callBus(m_bus, call, m_call.get(), [this, file](const QDBusMessage& reply) {
        m_call.release()->deleteLater();
        if (reply.type() == QDBusMessage::ReplyMessage)
            std::exchange(m_completion, {})(Outcome::Done, {});
        else
            openFolder(file, std::exchange(m_completion, {}));
    });
}

void ShowInFolderAction::cancel() {
    if (m_call)
        complete(std::exchange(m_completion, {}), Outcome::Cancelled);
    m_call.reset();
    m_portal.cancel();
}

void ShowInFolderAction::openFolder(const QUrl& file, Completion completion) {
    const auto opened = openToHandOver(file);
    if (!opened) {
        complete(std::move(completion), Outcome::Failed, opened.error().localizedDescription);
        return;
    }
    m_portal.request(QStringLiteral("OpenDirectory"), {QVariant::fromValue(*opened)}, {},
                     completing(std::move(completion)));
}

} // namespace reelsmith
