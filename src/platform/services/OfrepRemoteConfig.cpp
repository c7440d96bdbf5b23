// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/OfrepRemoteConfig.h"

#include "platform/foundation/DispatchQueue.h"
#include "platform/services/Ofrep.h"

#include <QCryptographicHash>
#include <QJsonDocument>

namespace reelsmith {

namespace {

DispatchQueue workQueue() {
    return DispatchQueue::global(QualityOfService::UserInitiated);
}

// A hash, because headers are secrets.
QString originOf(const ServiceRequest& request) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(request.url.toEncoded() + '\n');
    for (const auto& [name, value] : request.headers)
        hash.addData(name + ':' + value + '\n');
    hash.addData(request.body);
    return QString::fromLatin1(hash.result().toHex());
}

} // namespace

OfrepRemoteConfig::OfrepRemoteConfig(ServiceConfiguration::Endpoint endpoint,
                                     std::shared_ptr<ServiceTransport> transport,
                                     std::shared_ptr<LocalInstallations> installations, const QString& folder,
                                     Clock clock)
    : m_endpoint(std::move(endpoint)),
      m_transport(std::move(transport)),
      m_installations(std::move(installations)),
      m_clock(std::move(clock)),
      m_fetchedFile(folder + QStringLiteral("/remote-config-fetched.json")),
      m_activatedFile(folder + QStringLiteral("/remote-config-activated.json")),
      m_fetched(FetchedConfig::fromJson(m_fetchedFile.read().value_or(QByteArray()))) {
    const auto activated = QJsonDocument::fromJson(m_activatedFile.read().value_or(QByteArray())).object();
    m_activated = remoteValues(activated).value_or(RemoteValues());
}

void OfrepRemoteConfig::fetchWithExpirationDuration(std::chrono::seconds expirationDuration,
                                                    FetchCompletion completion) {
    workQueue().async([self = shared_from_this(), expirationDuration, completion = std::move(completion)] {
        self->fetch(expirationDuration, completion);
    });
}

void OfrepRemoteConfig::fetch(std::chrono::seconds expirationDuration, FetchCompletion completion) {
    ServiceRequest question = request();
    FetchedConfig config = known(question);
    const QDateTime now = m_clock();
    if (config.isFresh(expirationDuration, now)) {
        completion(RemoteConfigFetchStatus::Success, std::nullopt);
        return;
    }
    if (config.isThrottled(now)) {
        completion(RemoteConfigFetchStatus::Throttled, std::nullopt);
        return;
    }
    if (!config.entityTag().isEmpty())
        question.headers.emplaceBack("If-None-Match", config.entityTag());
    m_transport->post(question, [weakSelf = weak_from_this(), config = std::move(config),
                                 completion = std::move(completion)](const ServiceResult& result) {
        if (const auto self = weakSelf.lock())
            self->take(result, config, completion);
    });
}

void OfrepRemoteConfig::take(const ServiceResult& result, FetchedConfig known,
                             const FetchCompletion& completion) {
    const auto status =
        result.and_then([&](const ServiceAnswer& answer) { return known.take(answer, m_clock()); });
    if (!status) {
        completion(RemoteConfigFetchStatus::Failure, status.error());
        return;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_fetched = known;
    }
    m_fetchedFile.replace(known.toJson());
    completion(*status, std::nullopt);
}

void OfrepRemoteConfig::activateWithCompletion(ActivateCompletion completion) {
    workQueue().async([self = shared_from_this(), completion = std::move(completion)] {
        completion(self->activate(), std::nullopt);
    });
}

bool OfrepRemoteConfig::activate() {
    RemoteValues values;
    {
        const std::lock_guard lock(m_mutex);
        if (!m_fetched.values() || *m_fetched.values() == m_activated)
            return false;
        m_activated = values = *m_fetched.values();
    }
    m_activatedFile.replace(QJsonDocument(toJson(values)).toJson());
    return true;
}

std::optional<QString> OfrepRemoteConfig::stringValueForKey(const QString& key) const {
    const std::lock_guard lock(m_mutex);
    return m_activated.value(key);
}

QSet<QString> OfrepRemoteConfig::keysWithPrefix(const QString& prefix) const {
    const std::lock_guard lock(m_mutex);
    QSet<QString> keys;
    for (auto key = m_activated.keyBegin(); key != m_activated.keyEnd(); ++key) {
        if (key->startsWith(prefix))
            keys.insert(*key);
    }
    return keys;
}

ServiceRequest OfrepRemoteConfig::request() const {
    const ServiceHeaders ours{{"Content-Type", "application/json"}, {"Accept", "application/json"}};
    return {m_endpoint.url, m_endpoint.headers + ours, Ofrep::requestBody(m_installations->id()),
            m_endpoint.timeLimit};
}

FetchedConfig OfrepRemoteConfig::known(const ServiceRequest& request) const {
    const QString origin = originOf(request);
    const std::lock_guard lock(m_mutex);
    return m_fetched.origin() == origin ? m_fetched : FetchedConfig(origin);
}

} // namespace reelsmith
