// SPDX-License-Identifier: GPL-3.0-or-later
#include "mediaworker/Channel.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace reelsmith::mediaworker {

namespace {

constexpr std::size_t maximumDescriptors = 2;

/// `Received` when there is something to receive by then.
Channel::Status waitUntilReadable(int socket, Channel::Timeout timeout) {
    using Timeout = Channel::Timeout;
    pollfd waiting{socket, POLLIN, 0};
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    for (;;) {
        Timeout left = Channel::unlimited;
        if (timeout >= Timeout::zero())
            left = std::max(Timeout::zero(),
                            std::chrono::ceil<Timeout>(deadline - std::chrono::steady_clock::now()));
        const int ready = ::poll(&waiting, 1, static_cast<int>(left.count()));
        if (ready == 0)
            return Channel::Status::TimedOut;
        if (ready > 0)
            return Channel::Status::Received;
        if (errno != EINTR)
            return Channel::Status::Closed;
    }
}

std::vector<Descriptor> takeDescriptors(msghdr& header) {
    std::vector<Descriptor> descriptors;
    for (cmsghdr* item = CMSG_FIRSTHDR(&header); item; item = CMSG_NXTHDR(&header, item)) {
        if (item->cmsg_level != SOL_SOCKET || item->cmsg_type != SCM_RIGHTS)
            continue;
        const std::size_t count = (item->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (std::size_t i = 0; i < count; ++i) {
            int number = -1;
            std::memcpy(&number, CMSG_DATA(item) + i * sizeof(int), sizeof(int));
            descriptors.emplace_back(number);
        }
    }
    return descriptors;
}

} // namespace

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    std::swap(m_number, other.m_number);
    return *this;
}

Descriptor::~Descriptor() {
    if (m_number >= 0)
        ::close(m_number);
}

std::pair<Channel, Channel> Channel::makePair() {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw std::system_error(errno, std::generic_category(), "socketpair");
    return {Channel(Descriptor(ends[0])), Channel(Descriptor(ends[1]))};
}

void Channel::limitSending(Timeout timeout) {
    const timeval limit{timeout.count() / 1000, timeout.count() % 1000 * 1000};
    if (::setsockopt(m_socket.number(), SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit) != 0)
        throw std::system_error(errno, std::generic_category(), "setsockopt");
}

bool Channel::send(const Message& message, const std::vector<int>& descriptors) {
    if (descriptors.size() > maximumDescriptors)
        return false;
    std::vector<std::byte> bytes = encode(message);
    iovec part{bytes.data(), bytes.size()};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int) * maximumDescriptors)> control{};
    msghdr header{};
    header.msg_iov = &part;
    header.msg_iovlen = 1;
    if (!descriptors.empty()) {
        const std::size_t size = sizeof(int) * descriptors.size();
        header.msg_control = control.data();
        header.msg_controllen = CMSG_SPACE(size);
        cmsghdr* rights = CMSG_FIRSTHDR(&header);
        rights->cmsg_level = SOL_SOCKET;
        rights->cmsg_type = SCM_RIGHTS;
        rights->cmsg_len = CMSG_LEN(size);
        std::memcpy(CMSG_DATA(rights), descriptors.data(), size);
    }
    ssize_t sent = 0;
    do {
        sent = ::sendmsg(m_socket.number(), &header, MSG_NOSIGNAL);
    } while (sent < 0 && errno == EINTR);
    return sent == static_cast<ssize_t>(bytes.size());
}

Channel::Status Channel::receive(Letter& letter, Timeout timeout) {
    if (const Status status = waitUntilReadable(m_socket.number(), timeout); status != Status::Received)
        return status;

    std::array<std::byte, maximumMessageBytes + 1> bytes;
    iovec part{bytes.data(), bytes.size()};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int) * maximumDescriptors)> control{};
    msghdr header{};
    header.msg_iov = &part;
    header.msg_iovlen = 1;
    header.msg_control = control.data();
    header.msg_controllen = control.size();
    ssize_t size = 0;
    do {
        size = ::recvmsg(m_socket.number(), &header, MSG_CMSG_CLOEXEC);
    } while (size < 0 && errno == EINTR);
    if (size < 0)
        return Status::Closed;

    // Even a message of no bytes may bring some.
    letter.descriptors = takeDescriptors(header);
    auto message = decode(bytes.data(), static_cast<std::size_t>(size));
    if (!message || (header.msg_flags & (MSG_TRUNC | MSG_CTRUNC)))
        return Status::Closed;
    letter.message = std::move(*message);
    return Status::Received;
}

} // namespace reelsmith::mediaworker
