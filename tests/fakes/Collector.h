// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QUrl>

namespace reelsmith {

/// A collector of logs on the loopback (see collector.py), for as long as this lives.
class Collector {
public:
    Collector() {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral(COLLECTOR)});
        m_port = line().toInt();
    }
    ~Collector() {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }

    /// An address where the requests are answered with `answers`.
    QUrl url(const QString& answers) const {
        return QUrl(QStringLiteral("http://127.0.0.1:%1/%2/v1/logs").arg(m_port).arg(answers));
    }

    /// The next request; empty where none comes.
    QJsonObject nextRequest() { return QJsonDocument::fromJson(line()).object(); }

private:
    QByteArray line() {
        while (!m_process.canReadLine() && m_process.waitForReadyRead(20000))
            continue;
        return m_process.readLine();
    }

    QProcess m_process;
    int m_port = 0;
};

} // namespace reelsmith
