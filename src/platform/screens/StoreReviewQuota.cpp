// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/StoreReviewQuota.h"

#include "platform/foundation/UserDefaults.h"

namespace reelsmith {

namespace {

constexpr qint64 mostPrompts = 3;
constexpr qint64 periodDays = 365;
const QString countKey = QStringLiteral("STORE_REVIEW_PROMPT_COUNT");

} // namespace

bool StoreReviewQuota::allowsPrompt(const QDateTime& now) const {
    if (m_defaults.boolForKey(versionKey()))
        return false;
    const qint64 oldest = m_defaults.integerForKey(oldestPromptKey());
    return oldest == 0 || QDateTime::fromSecsSinceEpoch(oldest).daysTo(now) >= periodDays;
}

void StoreReviewQuota::countPrompt(const QDateTime& now) {
    m_defaults.setIntegerForKey(now.toSecsSinceEpoch(), oldestPromptKey());
    m_defaults.setBoolForKey(true, versionKey());
    m_defaults.incrementIntegerForKey(countKey);
}

// The times of the last prompts are kept in turn: the next one takes the place of the oldest.
QString StoreReviewQuota::oldestPromptKey() const {
    return QStringLiteral("STORE_REVIEW_PROMPT_TIME_%1")
        .arg(m_defaults.integerForKey(countKey) % mostPrompts);
}

QString StoreReviewQuota::versionKey() const {
    return QStringLiteral("STORE_REVIEW_PROMPT_SHOWN_") + m_version;
}

} // namespace reelsmith
