// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/HostLookup.h"

#include <QUrl>
#include <netdb.h>
#include <system_error>
#include <thread>

namespace reelsmith {

namespace {

bool isFound(const QByteArray& host) {
    addrinfo* addresses = nullptr;
    const bool hasAnswer = ::getaddrinfo(host.constData(), nullptr, nullptr, &addresses) == 0;
    if (hasAnswer)
        ::freeaddrinfo(addresses);
    return hasAnswer;
}

} // namespace

HostLookup::HostLookup(const QString& host, std::function<void(bool isFound)> done, QObject* parent)
    : QObject(parent), m_link(std::make_shared<Link>()) {
    m_link->lookup = this;
    const auto answer = [link = m_link, done = std::move(done)](bool found) {
        const std::lock_guard lock(link->mutex);
        if (link->lookup != nullptr)
            QMetaObject::invokeMethod(
                link->lookup, [done, found] { done(found); }, Qt::QueuedConnection);
    };
    try {
        std::thread([answer, name = QUrl::toAce(host)] { answer(isFound(name)); }).detach();
    } catch (const std::system_error&) {
        answer(false);
    }
}

HostLookup::~HostLookup() {
    const std::lock_guard lock(m_link->mutex);
    m_link->lookup = nullptr;
}

} // namespace reelsmith
