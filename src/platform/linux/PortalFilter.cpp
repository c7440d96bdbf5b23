// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/PortalFilter.h"

#include <QDBusMetaType>

namespace reelsmith {

namespace {

QString inAnyCase(const QString& pattern) {
    QString result;
    for (const QChar letter : pattern) {
        if (letter.isLetter())
            result += QStringLiteral("[%1%2]").arg(letter.toLower()).arg(letter.toUpper());
        else
            result += letter;
    }
    return result;
}

void registerTypes() {
    qDBusRegisterMetaType<PortalFilter::Rule>();
    qDBusRegisterMetaType<QList<PortalFilter::Rule>>();
    qDBusRegisterMetaType<PortalFilter>();
    qDBusRegisterMetaType<QList<PortalFilter>>();
}

} // namespace

QVariant portalFilters(const QList<DocumentChooser::Kind>& kinds) {
    registerTypes();
    QList<PortalFilter> filters;
    for (const DocumentChooser::Kind& kind : kinds) {
        PortalFilter filter{kind.name, {}};
        for (const QString& pattern : kind.patterns)
            filter.rules.append({0, inAnyCase(pattern)});
        for (const QString& mimeType : kind.mimeTypes)
            filter.rules.append({1, mimeType});
        filters.append(filter);
    }
    return QVariant::fromValue(filters);
}

QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter::Rule& rule) {
    argument.beginStructure();
    argument << rule.isMimeType << rule.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter::Rule& rule) {
    argument.beginStructure();
    argument >> rule.isMimeType >> rule.text;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter& filter) {
    argument.beginStructure();
    argument << filter.name << filter.rules;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter& filter) {
    argument.beginStructure();
    argument >> filter.name >> filter.rules;
    argument.endStructure();
    return argument;
}

} // namespace reelsmith
