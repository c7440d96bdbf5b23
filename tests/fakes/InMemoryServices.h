// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakes/InMemoryRemoteConfig.h"

#include "platform/services/Services.h"

#include <QList>
#include <memory>

namespace reelsmith {

/// An analytics service that remembers what it was given, in order. Any thread.
class InMemoryAnalytics : public Analytics {
public:
    struct Event {
        QString name;
        std::optional<AnalyticsParameters> parameters;

        bool operator==(const Event&) const = default;
    };
    struct State {
        QList<Event> events = {};
        QMap<QString, QString> userProperties = {};
    };

    void reset() {
        const std::lock_guard lock(m_mutex);
        m_state = {};
    }
    State state() const {
        const std::lock_guard lock(m_mutex);
        return m_state;
    }

    void logEventWithName(const QString& name,
                          const std::optional<AnalyticsParameters>& parameters) override {
        const std::lock_guard lock(m_mutex);
        m_state.events.append({name, parameters});
    }
    void setUserPropertyString(const QString& value, const QString& name) override {
        const std::lock_guard lock(m_mutex);
        m_state.userProperties.insert(name, value);
    }

private:
    mutable std::mutex m_mutex;
    State m_state;
};

/// An installation service that answers as it was told to: until then with neither a token nor an error.
/// A forced refresh yields a new token, numbered. Main thread.
class InMemoryInstallations : public Installations {
public:
    std::optional<QString> token;
    std::optional<ServiceError> error;
    int refreshCount = 0;

    void authTokenForcingRefresh(Refresh refresh, AuthTokenCompletion completion) override {
        refreshCount += refresh == Refresh::Forced;
        std::optional<InstallationAuthToken> answer;
        if (token && !error)
            answer = InstallationAuthToken{*token + QLatin1Char('#') + QString::number(refreshCount)};
        DispatchQueue::main().async([completion, answer, error = error] { completion(answer, error); });
    }
};

/// The services of a whole process, in memory.
struct InMemoryServices {
    std::shared_ptr<InMemoryRemoteConfig> remoteConfig = std::make_shared<InMemoryRemoteConfig>();
    std::shared_ptr<InMemoryInstallations> installations = std::make_shared<InMemoryInstallations>();
    std::shared_ptr<InMemoryAnalytics> analytics = std::make_shared<InMemoryAnalytics>();

    /// The one instance, handed over to the application and emptied at each call.
    static InMemoryServices& fresh() {
        static InMemoryServices services;
        Services::configure({services.remoteConfig, services.installations, services.analytics});
        services.remoteConfig->setState({});
        *services.installations = {};
        services.analytics->reset();
        return services;
    }
};

} // namespace reelsmith
