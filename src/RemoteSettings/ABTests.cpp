// SPDX-License-Identifier: GPL-3.0-or-later
#include "RemoteSettings/ABTests.h"

#include "platform/foundation/Console.h"
#include "platform/foundation/FatalError.h"
#include "platform/services/Services.h"

#include <QTextBoundaryFinder>

namespace reelsmith {

namespace {

constexpr int greatestParticipationLength = 36;

// Characters as a reader counts them.
int characterCount(const QString& text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int count = 0;
    while (finder.toNextBoundary() != -1)
        ++count;
    return count;
}

} // namespace

ABTests& ABTests::shared() {
    static ABTests sharedTests;
    return sharedTests;
}

void ABTests::reportParticipation(const QStringList& ids) {
    QString participation = QStringLiteral("|");
    for (const QString& id : ids)
        participation += id + QLatin1Char('|');
    console(QStringLiteral("Compatible experiments: ") + participation);
    // Crash reports are told apart by the place they name, so it stays what it is when lines move.
    if (characterCount(participation) > greatestParticipationLength)
        fatalError("Experiment keys can't have more than 36 characters", "RemoteSettings/ABTests", 32);
    Services::analytics()->setUserPropertyString(participation, QStringLiteral("participating_tests"));
}

void ABTests::printInstallationAuthToken() const {
    const auto answered = [](const std::optional<InstallationAuthToken>& token,
                             const std::optional<ServiceError>& error) {
        if (error)
            console(QStringLiteral("Error fetching token: ") + error->localizedDescription);
        else if (token)
            console(QStringLiteral("Installation auth token: ") + token->authToken);
    };
    Services::installations()->authTokenForcingRefresh(Installations::Refresh::Forced, answered);
}

} // namespace reelsmith
