// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/ServiceExchange.h"

#include "platform/linux/network/Answered.h"

#include <QNetworkAccessManager>
#include <utility>

namespace reelsmith {

namespace {

QNetworkRequest networkRequest(const ServiceRequest& request) {
    QNetworkRequest result(request.url);
    result.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("reelsmith/" REELSMITH_VERSION));
    result.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    for (const auto attribute :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute})
        result.setAttribute(attribute, QNetworkRequest::Manual);
    // A body that is unpacked on the way is neither as long as it says nor bounded by what has come.
    result.setRawHeader("Accept-Encoding", "identity");
    for (const auto& [name, value] : request.headers)
        result.setRawHeader(name, value);
    return result;
}

} // namespace

ServiceExchange::ServiceExchange(QNetworkAccessManager& manager, const ServiceRequest& request,
                                 ServiceTransport::Completion completion)
    : QObject(&manager),
      m_maximumAnswerBytes(request.maximumAnswerBytes),
      m_completion(std::move(completion)) {
    if (isServiceAddress(request.url))
        begin(manager, request);
    else
        complete(tl::unexpected(ServiceError{QStringLiteral("No service may be at that address")}));
}

void ServiceExchange::begin(QNetworkAccessManager& manager, const ServiceRequest& request) {
    m_reply = manager.post(networkRequest(request), request.body);
    m_reply->setParent(this);
    m_reply->setReadBufferSize(m_maximumAnswerBytes + 1);
    connect(m_reply, &QNetworkReply::readyRead, this, &ServiceExchange::collect);
    connect(m_reply, &QNetworkReply::finished, this, &ServiceExchange::finish);
    connect(&m_timeLimit, &QTimer::timeout, this,
            [this] { giveUp(QStringLiteral("No answer came in time")); });
    m_timeLimit.setSingleShot(true);
    m_timeLimit.start(request.timeLimit);
}

void ServiceExchange::collect() {
    m_body += m_reply->readAll();
    if (m_body.size() > m_maximumAnswerBytes)
        giveUp(QStringLiteral("The answer is too long"));
}

void ServiceExchange::giveUp(const QString& reason) {
    if (!m_reasonGivenUp.isEmpty())
        return;
    m_reasonGivenUp = reason;
    m_reply->abort();
}

void ServiceExchange::finish() {
    m_timeLimit.stop();
    if (m_reasonGivenUp.isEmpty() && isAnswered(*m_reply))
        collect();
    if (!m_reasonGivenUp.isEmpty()) {
        complete(tl::unexpected(ServiceError{m_reasonGivenUp}));
    } else if (!isAnswered(*m_reply)) {
        complete(tl::unexpected(ServiceError{m_reply->errorString()}));
    } else if (!isWhole()) {
        complete(tl::unexpected(ServiceError{QStringLiteral("The answer broke off")}));
    } else {
        complete(ServiceAnswer{status(), m_reply->rawHeaderPairs(), m_body});
    }
}

int ServiceExchange::status() const {
    return m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

// Now and then Qt takes the end of a connection for the end of the body. "Not modified" has none, but may
// tell the length of the one that it spares.
bool ServiceExchange::isWhole() const {
    constexpr int notModified = 304;
    bool isTold = false;
    const qint64 length = m_reply->rawHeader("Content-Length").toLongLong(&isTold);
    return !isTold || length == m_body.size() || status() == notModified;
}

void ServiceExchange::complete(const ServiceResult& result) {
    deleteLater();
    m_completion(result);
}

} // namespace reelsmith
