// SPDX-License-Identifier: GPL-3.0-or-later
//
// A media worker that somebody has taken over: it does what the bytes of its source say, without a thought to
// the protocol. They are records of a head, a length and a payload of that many bytes; the head's lower two
// bits tell which request the record is for (3: any), the others what is done.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr int channel = 3;
constexpr int anyRequest = 3;
constexpr int outputNumber = 1;
constexpr std::array<std::uint8_t, 20'000> tooMuch{};

struct Request {
    int kind = 0;
    std::array<int, 2> descriptors{-1, -1};
};

bool receive(Request& request) {
    std::array<std::uint8_t, 4096> bytes;
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof request.descriptors)> control{};
    iovec part{bytes.data(), bytes.size()};
    msghdr header{};
    header.msg_iov = &part;
    header.msg_iovlen = 1;
    header.msg_control = control.data();
    header.msg_controllen = control.size();
    if (::recvmsg(channel, &header, 0) <= 0)
        return false;
    request.kind = bytes[0];
    if (const cmsghdr* rights = CMSG_FIRSTHDR(&header))
        std::memcpy(request.descriptors.data(), CMSG_DATA(rights), rights->cmsg_len - CMSG_LEN(0));
    return true;
}

void say(Bytes bytes, const Request* returned = nullptr) {
    iovec part{const_cast<std::uint8_t*>(bytes.data()), bytes.size()};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof returned->descriptors)> control{};
    msghdr header{};
    header.msg_iov = &part;
    header.msg_iovlen = 1;
    if (returned && returned->descriptors[outputNumber] >= 0) {
        header.msg_control = control.data();
        header.msg_controllen = control.size();
        cmsghdr* rights = CMSG_FIRSTHDR(&header);
        rights->cmsg_level = SOL_SOCKET;
        rights->cmsg_type = SCM_RIGHTS;
        rights->cmsg_len = CMSG_LEN(sizeof returned->descriptors);
        std::memcpy(CMSG_DATA(rights), returned->descriptors.data(), sizeof returned->descriptors);
    }
    ::sendmsg(channel, &header, MSG_DONTWAIT | MSG_NOSIGNAL);
}

void act(int action, Bytes payload, const Request& request) {
    enum { Say, SayAndReturn, Write, Die, Flood, Resize, SayTooMuch };
    const auto first = payload.empty() ? 0 : payload[0];
    const int output = request.descriptors[outputNumber];
    if (action == Say)
        say(payload);
    else if (action == SayAndReturn)
        say(payload, &request);
    else if (action == Write && ::write(output, payload.data(), payload.size()) < 0)
        return;
    else if (action == Die)
        ::_exit(first);
    else if (action == Resize && ::ftruncate(output, off_t{1} << (first % 22)) < 0)
        return;
    else if (action == SayTooMuch)
        say(tooMuch);
    for (int i = 0; action == Flood && i < 300; ++i)
        say(payload, i % 2 == 0 ? &request : nullptr);
}

} // namespace

int main() {
    for (Request request; receive(request); request = {}) {
        std::vector<std::uint8_t> script(16 * 1024);
        const ssize_t size = ::pread(request.descriptors[0], script.data(), script.size(), 0);
        Bytes left(script.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
        while (left.size() >= 2) {
            const int head = left[0];
            const Bytes payload = left.subspan(2, std::min<std::size_t>(left[1], left.size() - 2));
            left = left.subspan(2 + payload.size());
            if ((head & 3) == request.kind || (head & 3) == anyRequest)
                act(head >> 2 & 7, payload, request);
        }
        // Whoever still waits for an answer is not to wait in vain.
        return 0;
    }
}
