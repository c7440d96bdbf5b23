// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QNetworkReply;

namespace reelsmith {

/// Whether a server has answered, with whatever status. False for a transfer that has broken off.
bool isAnswered(const QNetworkReply& reply);

} // namespace reelsmith
