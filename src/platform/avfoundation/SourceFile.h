// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mediaworker/Channel.h"
#include "platform/foundation/Error.h"

#include <QUrl>

namespace reelsmith {

/// Opens a regular file for reading; whatever else may stand there (a folder, device, FIFO, socket) is
/// refused, with an error that holds no name: errors of exports are counted as usage data. Never waits for a
/// writer. Any thread.
Result<mediaworker::Descriptor> openSourceFile(const QUrl& url);

} // namespace reelsmith
