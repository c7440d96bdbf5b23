// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/Error.h"

#include <QDBusUnixFileDescriptor>
#include <QUrl>

namespace reelsmith {

/// Opens a file for reading, to hand it to another process.
Result<QDBusUnixFileDescriptor> openToHandOver(const QUrl& file);

} // namespace reelsmith
