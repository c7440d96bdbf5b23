// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace reelsmith {

/// `data` as a gzip file.
QByteArray gzip(const QByteArray& data);

} // namespace reelsmith
