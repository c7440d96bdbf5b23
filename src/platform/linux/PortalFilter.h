// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/screens/DocumentChooser.h"

#include <QDBusArgument>
#include <QList>
#include <QString>
#include <QVariant>

namespace reelsmith {

/// A kind of file in the form that the portal's file chooser takes.
struct PortalFilter {
    struct Rule {
        uint isMimeType = 0; ///< 1 for a MIME type, 0 for a pattern
        QString text;
    };

    QString name;
    QList<Rule> rules;
};

/// The value of the chooser's option "filters". Patterns fit whatever the case of their letters.
QVariant portalFilters(const QList<DocumentChooser::Kind>& kinds);

QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter::Rule& rule);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter::Rule& rule);
QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter& filter);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter& filter);

} // namespace reelsmith
