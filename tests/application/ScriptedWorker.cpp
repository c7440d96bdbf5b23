// SPDX-License-Identifier: GPL-3.0-or-later
//
// A media worker that does what its source says. A source holds lines "KIND COMMAND ARGUMENTS…", KIND being
// the request (probe, thumbnail, export) that the line is for; they are obeyed in order, then comes the
// answer.
#include "mediaworker/Channel.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sstream>
#include <unistd.h>

using namespace reelsmith::mediaworker;

namespace {

constexpr int channelDescriptor = 3;

std::string readAll(int source) {
    std::array<char, 4096> bytes;
    const ssize_t size = ::pread(source, bytes.data(), bytes.size(), 0);
    return {bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))};
}

void writeAll(int output, const std::string& text) {
    if (::write(output, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
        ::abort();
}

void hang() {
    for (;;)
        ::pause();
}

void await(const std::string& mark) {
    while (::access(mark.c_str(), F_OK) != 0)
        ::poll(nullptr, 0, 1);
}

std::string openDescriptors() {
    std::string text;
    for (int number = 0; number < 64; ++number)
        text += ::fcntl(number, F_GETFD) >= 0 ? std::to_string(number) + " " : "";
    return text;
}

/// What a probe finds wherever its source says nothing else.
AssetProperties turnedFilm() {
    AssetProperties film;
    film.isPlayable = film.isExportable = true;
    film.duration = {1490, 400};
    film.videoTrack = VideoTrackProperties{1920, 1080, {0, 1, -1, 0}};
    film.estimatedBytes = {10, 20, 30, 0};
    return film;
}

class Request {
public:
    Request(Channel& channel, const Letter& letter) : m_channel(channel), m_letter(letter) {}

    void answer() {
        const std::array<std::string, 3> kinds{"probe", "thumbnail", "export"};
        std::istringstream lines(readAll(m_letter.descriptors.at(0).number()));
        for (std::string kind, command, rest; lines >> kind >> command && std::getline(lines, rest);)
            if (kind == kinds.at(m_letter.message.index()))
                obey(command, rest.erase(0, 1));
        const std::array<Message, 3> answers{m_properties, m_thumbnail, m_finished};
        m_channel.send(answers.at(m_letter.message.index()));
    }

private:
    void obey(const std::string& command, const std::string& rest) {
        std::istringstream words(rest);
        if (command == "die")
            ::raise(SIGKILL);
        else if (command == "hang")
            hang();
        else if (command == "fail")
            m_finished.problem = rest;
        else if (command == "claim" || command == "picture")
            words >> m_thumbnail.width >> m_thumbnail.height;
        else if (command == "descriptors")
            m_thumbnail.problem = openDescriptors();
        else if (command == "environment")
            m_thumbnail.problem = std::getenv(rest.c_str()) ? std::getenv(rest.c_str()) : "not there";
        else if (command == "process")
            m_thumbnail.problem = std::to_string(::getpid());
        else if (command == "write")
            writeAll(m_letter.descriptors.at(1).number(), rest);
        else if (command == "await")
            await(rest);
        else if (command == "progress")
            m_channel.send(ExportProgress{std::stod(rest)});
        else if (command == "flood")
            flood();
        else if (command == "linger")
            linger();
        else
            ::abort();
        if (command == "picture")
            drawPicture();
    }

    /// Answers whoever asks next, too, and never listens.
    void flood() {
        const bool isProbe = std::holds_alternative<ProbeRequest>(m_letter.message);
        while (m_channel.send(isProbe ? Message(m_properties) : Message(ExportProgress{0.5})))
            continue;
    }

    /// Goes on writing when all is said.
    void linger() {
        m_channel.send(m_finished);
        for (;;)
            writeAll(m_letter.descriptors.at(1).number(), "more");
    }

    void drawPicture() {
        const auto bytes = static_cast<std::size_t>(m_thumbnail.width * m_thumbnail.height * 4);
        writeAll(m_letter.descriptors.at(1).number(), std::string(bytes, '\xff'));
    }

    Channel& m_channel;
    const Letter& m_letter;
    AssetProperties m_properties = turnedFilm();
    ThumbnailReply m_thumbnail;
    ExportFinished m_finished;
};

} // namespace

int main() {
    Channel channel{Descriptor(channelDescriptor)};
    for (Letter letter; channel.receive(letter) == Channel::Status::Received; letter = {})
        Request(channel, letter).answer();
}
