// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/ServiceExchange.h"

#include "platform/linux/network/Answered.h"
#include "platform/linux/network/HostLookup.h"
#include "platform/linux/network/ServiceProxies.h"

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
    : QObject(&manager), m_manager(manager), m_request(request), m_completion(std::move(completion)) {
    if (!isServiceAddress(request.url)) {
        giveUp(QStringLiteral("No service may be at that address"));
        return;
    }
    connect(&m_timeLimit, &QTimer::timeout, this,
            [this] { giveUp(QStringLiteral("No answer came in time")); });
    m_timeLimit.setSingleShot(true);
    m_timeLimit.start(request.timeLimit);
    const auto found = [this](bool isFound) {
        if (!isFound)
            giveUp(QStringLiteral("The host was not found"));
        else if (!m_isOver)
            send();
    };
    new HostLookup(ServiceProxies::nextHost(request.url), found, this);
}

void ServiceExchange::send() {
    m_reply = m_manager.post(networkRequest(m_request), m_request.body);
    m_reply->setParent(this);
    m_reply->setReadBufferSize(m_request.maximumAnswerBytes + 1);
    connect(m_reply, &QNetworkReply::readyRead, this, &ServiceExchange::collect);
    connect(m_reply, &QNetworkReply::finished, this, &ServiceExchange::finish);
}

void ServiceExchange::collect() {
    m_body += m_reply->readAll();
    if (m_body.size() > m_request.maximumAnswerBytes)
        giveUp(QStringLiteral("The answer is too long"));
}

void ServiceExchange::giveUp(const QString& reason) {
    if (m_isOver)
        return;
    complete(tl::unexpected(ServiceError{reason}));
    if (m_reply != nullptr)
        m_reply->abort();
}

void ServiceExchange::finish() {
    if (isAnswered(*m_reply))
        collect();
    if (m_isOver)
        return;
    if (!isAnswered(*m_reply))
        giveUp(m_reply->errorString());
    else if (!isWhole())
        giveUp(QStringLiteral("The answer broke off"));
    else
        complete(ServiceAnswer{status(), m_reply->rawHeaderPairs(), m_body});
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
    m_isOver = true;
    m_timeLimit.stop();
    deleteLater();
    m_completion(result);
}

} // namespace reelsmith
