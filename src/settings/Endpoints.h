// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

// Where the application sends its users. Whoever distributes it puts in addresses of their own.
namespace reelsmith::Endpoints {

inline const QString makerWebSite = QStringLiteral("https://reelsmith.example/help");
inline const QString productWebSite = QStringLiteral("https://reelsmith.example/usage-data");
inline const QString developerPage = QStringLiteral("https://reelsmith.example/apps");
inline const QStringList supportRecipients{QStringLiteral("support@reelsmith.example")};

} // namespace reelsmith::Endpoints
