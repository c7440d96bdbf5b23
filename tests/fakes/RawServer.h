// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>
#include <optional>

namespace reelsmith {

/// A web server on the loopback that gives its answers one after another, byte for byte, and closes each
/// connection after its answer; without one left it never answers. Needs the main thread's event loop.
class RawServer {
public:
    QList<QByteArray> answers;
    QList<QByteArray> requests; ///< whole, as they have come

    RawServer() {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            QTcpSocket* const socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, &m_server, [this, socket] { serve(*socket); });
        });
    }

    QUrl url() const {
        return QUrl(QStringLiteral("http://127.0.0.1:%1/evaluate").arg(m_server.serverPort()));
    }

    /// An answer for `answers`.
    static QByteArray answer(const QByteArray& status, const QByteArray& body = {},
                             const QByteArray& headers = {}) {
        return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" +
               headers + "\r\n" + body;
    }

private:
    void serve(QTcpSocket& socket) {
        const QByteArray come = socket.property("come").toByteArray() + socket.readAll();
        socket.setProperty("come", come);
        const auto head = come.indexOf("\r\n\r\n") + 4;
        const auto length = come.toLower().indexOf("content-length: ") + 16;
        if (head < 4 || come.size() < head + come.mid(length, come.indexOf('\r', length) - length).toInt())
            return;
        requests.append(come);
        if (answers.isEmpty())
            return;
        socket.write(answers.takeFirst());
        socket.disconnectFromHost();
    }

    QTcpServer m_server;
};

} // namespace reelsmith
