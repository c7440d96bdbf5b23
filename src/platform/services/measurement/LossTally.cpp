// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/LossTally.h"

#include <QtGlobal>
#include <array>

namespace reelsmith {

namespace {

// Wrong names come from a program gone wrong, which may have any number of them.
constexpr qsizetype mostNamed = 1000;

struct Words {
    const char* word;
    const char* explanation;
};

constexpr std::array<Words, 11> words{{
    {"event_name", "an event's name breaks the rules, it is dropped"},
    {"distinct_event_names", "there are too many different events, this one is dropped"},
    {"parameter_count", "an event has too many parameters, the last ones are dropped"},
    {"parameter_name", "a parameter's name breaks the rules, it is dropped"},
    {"parameter_value", "a parameter's text is too long and is cut"},
    {"property_name", "a property's name breaks the rules, it is dropped"},
    {"property_value", "a property's text is too long and is cut"},
    {"overflow", "too many events are stored, the oldest are dropped"},
    {"age", "stored events have become too old and are dropped"},
    {"refusal", "the collector refuses a bundle, its events are dropped"},
    {"rejection", "the collector rejects events of a bundle"},
}};

const Words& wordsFor(Loss loss) {
    return words[static_cast<std::size_t>(loss)];
}

} // namespace

void LossTally::add(Loss loss, const QString& name, qint64 count) {
    if (count <= 0)
        return;
    m_counts[loss] += count;
    nameInLog(loss, name);
}

QString LossTally::word(Loss loss) {
    return QString::fromLatin1(wordsFor(loss).word);
}

void LossTally::nameInLog(Loss loss, const QString& name) {
    const QString key = word(loss) + QLatin1Char(' ') + name;
    if (m_named.contains(key) || m_named.size() >= mostNamed)
        return;
    m_named.insert(key);
    const QByteArray whose = name.isEmpty() ? QByteArray() : " (\"" + name.left(100).toUtf8() + "\")";
    qWarning("Measurement: %s%s", wordsFor(loss).explanation, whose.constData());
}

} // namespace reelsmith
