// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>
#include <optional>

namespace reelsmith {

/// The name of a conversion's result, without its ending: the given name as it is, else what stands in the
/// source's name before the first "." that is not its beginning, else a new UUID.
QString outputBaseName(const std::optional<QString>& name, const QUrl& source);

/// Where the result goes: into the outputs folder, as "NAME.mp4". No documents folder is a fatal error.
QUrl outputUrl(const QString& baseName);

} // namespace reelsmith
