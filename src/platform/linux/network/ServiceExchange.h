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
    void send();
    void collect();
    void giveUp(const QString& reason);
    void finish();
    int status() const;
    bool isWhole() const;
    void complete(const ServiceResult& result);

    QNetworkAccessManager& m_manager;
    const ServiceRequest m_request;
    const ServiceTransport::Completion m_completion;
    QNetworkReply* m_reply = nullptr; // this one's child
    QTimer m_timeLimit;
    QByteArray m_body;
    bool m_isOver = false;
};

} // namespace reelsmith
