// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/DispatchQueue.h"
#include "platform/services/Installations.h"

namespace reelsmith {

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

} // namespace reelsmith
