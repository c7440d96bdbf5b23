// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mediaworker/Messages.h"

#include <chrono>
#include <utility>
#include <vector>

namespace reelsmith::mediaworker {

/// A file descriptor that is closed with its owner.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor();

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

private:
    int m_number = -1;
};

/// A received message and the descriptors that came with it.
struct Letter {
    Message message;
    std::vector<Descriptor> descriptors;
};

/// One end of the line between the application and a worker: a SOCK_SEQPACKET socket, one message a datagram.
/// Sending and receiving may happen on two threads at once.
class Channel {
public:
    /// How long a call may wait for the other side.
    using Timeout = std::chrono::milliseconds;
    static constexpr Timeout unlimited{-1};

    enum class Status { Received, TimedOut, Closed };

    explicit Channel(Descriptor socket) : m_socket(std::move(socket)) {}

    /// Two connected ends, both close-on-exec.
    static std::pair<Channel, Channel> makePair();

    /// From now on send() fails where the other side has not made room for a message by then.
    void limitSending(Timeout timeout);

    /// False when the other side is gone (no signal is raised). The descriptors stay the caller's.
    bool send(const Message& message, const std::vector<int>& descriptors = {});

    /// Waits for one message. `Closed` also covers a datagram that is no message: such a peer is not to be
    /// trusted.
    Status receive(Letter& letter, Timeout timeout = unlimited);

    int descriptor() const { return m_socket.number(); }

private:
    Descriptor m_socket;
};

} // namespace reelsmith::mediaworker
