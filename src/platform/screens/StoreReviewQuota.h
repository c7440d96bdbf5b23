// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

namespace reelsmith {

class UserDefaults;

/// How often the user may be asked to rate the application: at most 3 times in 365 days, and once for each
/// version. Kept in the user defaults.
class StoreReviewQuota {
public:
    StoreReviewQuota(UserDefaults& defaults, QString version)
        : m_defaults(defaults), m_version(std::move(version)) {}

    bool allowsPrompt(const QDateTime& now) const;
    void countPrompt(const QDateTime& now);

private:
    QString oldestPromptKey() const;
    QString versionKey() const;

    UserDefaults& m_defaults;
    const QString m_version;
};

} // namespace reelsmith
