// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/PortalLinkOpener.h"

#include "platform/linux/MimeHandlers.h"
#include "platform/linux/bus/PortalRequest.h"

#include <QDesktopServices>
#include <utility>

namespace reelsmith {

void PortalLinkOpener::open(const QUrl& url, Completion completion) {
    PortalRequest::Call call{QStringLiteral("OpenURI"), QStringLiteral("OpenURI"), {}, {}, {}};
    call.arguments = {QString::fromLatin1(url.toEncoded())};
    // Where there is a program, the portal may first ask the user whether to take it.
    if (!mimehandlers::isAnyFor(QStringLiteral("x-scheme-handler/") + url.scheme()))
        call.limit = m_limit;
    PortalRequest::send(
        m_bus, call,
        [url, completion = std::move(completion)](const PortalRequest::Answer& answer) {
            if (answer.outcome == PortalRequest::Outcome::Failed)
                completion(QDesktopServices::openUrl(url));
            else
                completion(answer.outcome == PortalRequest::Outcome::Granted);
        },
        &m_requests);
}

} // namespace reelsmith
