// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/Answered.h"

#include <QNetworkReply>

namespace reelsmith {

// The status of an answer counts as an error of the reply, as does a transfer that has broken off.
bool isAnswered(const QNetworkReply& reply) {
    const QNetworkReply::NetworkError error = reply.error();
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const bool isOfStatus = status >= 400 && error >= QNetworkReply::ContentAccessDenied &&
                            error != QNetworkReply::ProtocolFailure;
    return error == QNetworkReply::NoError || isOfStatus;
}

} // namespace reelsmith
