// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>

namespace reelsmith {

/// The web on the loopback (see web_server.py), for as long as this lives.
class WebServer {
public:
    WebServer() {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral("python3"), {QStringLiteral(WEB_SERVER), m_folder.path()});
        while (!m_process.canReadLine() && m_process.waitForReadyRead())
            continue;
        m_ports = m_process.readLine().trimmed().split(' ');
    }
    ~WebServer() {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }

    bool isRunning() const { return m_ports.size() == 2; }
    QUrl http(const QString& path) const { return url(QStringLiteral("http"), m_ports.first(), path); }
    QUrl https(const QString& path) const { return url(QStringLiteral("https"), m_ports.last(), path); }

    /// The file of the certificate of https, which nobody trusts by itself.
    QString certificate() const { return m_folder.filePath(QStringLiteral("certificate.pem")); }

private:
    static QUrl url(const QString& scheme, const QByteArray& port, const QString& path) {
        return QUrl(scheme + QStringLiteral("://127.0.0.1:") + QString::fromLatin1(port) + path);
    }

    QTemporaryDir m_folder;
    QProcess m_process;
    QList<QByteArray> m_ports;
};

} // namespace reelsmith
