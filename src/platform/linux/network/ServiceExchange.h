// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/ServiceTransport.h"

#include <QNetworkReply>
#include <QTimer>

namespace reelsmith {

/// One request and its answer. Belongs to the manager that carries it, and goes when it is over. On the
/// manager's thread.
class ServiceExchange : public QObject {
public:
    ServiceExchange(QNetworkAccessManager& manager, const ServiceRequest& request,
                    ServiceTransport::Completion completion);

private:
    void begin(QNetworkAccessManager& manager, const ServiceRequest& request);
    void collect();
    void giveUp(const QString& reason);
    void finish();
    int status() const;
    bool isWhole() const;
    void complete(const ServiceResult& result);

    const qint64 m_maximumAnswerBytes;
    const ServiceTransport::Completion m_completion;
    QNetworkReply* m_reply = nullptr; // this one's child
    QTimer m_timeLimit;
    QByteArray m_body;
    QString m_reasonGivenUp;
};

} // namespace reelsmith
