// SPDX-License-Identifier: GPL-3.0-or-later
#include "RemoteSettings/RemoteSettings.h"

#include "RemoteSettings/TimeInterval.h"
#include "platform/foundation/Console.h"
#include "platform/services/Services.h"

namespace reelsmith {

RemoteSettings& RemoteSettings::shared() {
    static const auto sharedSettings = std::make_shared<RemoteSettings>(Services::remoteConfig());
    return *sharedSettings;
}

RemoteSettings::RemoteSettings(std::shared_ptr<RemoteConfig> remoteConfig)
    : m_remoteConfig(std::move(remoteConfig)) {}

void RemoteSettings::fetch(Completion completion) {
    const auto fetched = [weakSelf = weak_from_this(), completion = std::move(completion)](
                             RemoteConfigFetchStatus status, const std::optional<ServiceError>& error) {
        if (error) {
            console(QStringLiteral("Failed to fetch scenario: ") + error->localizedDescription);
            completion();
        } else if (status == RemoteConfigFetchStatus::Success) {
            if (const auto self = weakSelf.lock())
                self->activate(completion);
        } else {
            console(QStringLiteral("Failed to fetch scenario with status ") +
                    QString::number(static_cast<int>(status)));
            completion();
        }
    };
    m_remoteConfig->fetchWithExpirationDuration(TimeInterval::hours(1), fetched);
}

void RemoteSettings::activate(const Completion& completion) {
    const auto activated = [weakSelf = weak_from_this(),
                            completion](bool, const std::optional<ServiceError>& error) {
        if (error) {
            console(QStringLiteral("Failed to activate remote configs: ") + error->localizedDescription);
        } else {
            console(QStringLiteral("Activate remote configs successfuly"));
            if (const auto self = weakSelf.lock())
                self->printRemoteConfigs();
        }
        completion();
    };
    m_remoteConfig->activateWithCompletion(activated);
}

void RemoteSettings::printRemoteConfigs() const {
    const QSet<QString> keys = m_remoteConfig->keysWithPrefix(QString());
    if (keys.isEmpty())
        return;
    console(QStringLiteral("\nREMOTE CONFIGS:"));
    for (const QString& key : keys)
        console(QStringLiteral("    ") + key + QStringLiteral(": ") +
                m_remoteConfig->stringValueForKey(key).value_or(QStringLiteral("(null)")));
    console(QString());
}

std::optional<QString> RemoteSettings::usableString(const QString& key) const {
    std::optional<QString> text = m_remoteConfig->stringValueForKey(key);
    if (text && text->isEmpty())
        text.reset();
    return text;
}

} // namespace reelsmith
