// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace reelsmith {

/// Which programs the user has for what, from the desktop's lists of associations. Reads small files.
namespace mimehandlers {

/// Whether any installed program opens a MIME type or "x-scheme-handler/SCHEME".
bool isAnyFor(const QString& mimeType);

/// Whether any writes mails.
bool hasMailProgram();

} // namespace mimehandlers

} // namespace reelsmith
