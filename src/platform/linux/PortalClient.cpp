// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/PortalClient.h"

#include "platform/linux/bus/BusServices.h"

#include <utility>

namespace reelsmith {

void PortalClient::ask(std::function<void(bool isThere)> answer) {
    busservices::askForPortal(m_bus, m_interface, this, std::move(answer));
}

void PortalClient::request(const QString& method, const QVariantList& arguments, const QVariantMap& options,
                           PortalRequest::Completion completion) {
    cancel();
    m_request = PortalRequest::send(m_bus, {m_interface, method, arguments, options, {}},
                                    std::move(completion), this);
}

void PortalClient::cancel() {
    if (m_request)
        m_request->cancel();
}

} // namespace reelsmith
