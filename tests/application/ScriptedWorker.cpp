// SPDX-License-Identifier: GPL-3.0-or-later
//
// A media worker that does what its source says. A source holds lines "KIND COMMAND ARGUMENTS…", KIND being
// the request (probe, thumbnail, export) that the line is for; they are obeyed in order, then comes the
// answer.
#include "mediaworker/Channel.h"

#include <algorithm>
#include <array>
#include <csignal>
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

void hangOnce(const std::string& mark) {
    if (::open(mark.c_str(), O_CREAT | O_EXCL | O_WRONLY, 0600) >= 0)
        hang();
}

void await(const std::string& mark) {
    while (::access(mark.c_str(), F_OK) != 0)
        ::poll(nullptr, 0, 1);
}

std::string rest(std::istringstream& words) {
    std::string text;
    std::getline(words, text);
    return text;
}

std::string openDescriptors() {
    std::string text;
    for (int number = 0; number < 64; ++number)
        text += ::fcntl(number, F_GETFD) >= 0 ? std::to_string(number) + " " : "";
    return text;
}

class Request {
public:
    Request(Channel& channel, const Letter& letter) : m_channel(channel), m_letter(letter) {}

    void answer() {
        const std::array<std::string, 3> kinds{"probe", "thumbnail", "export"};
        std::istringstream lines(readAll(m_letter.descriptors.at(0).number()));
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string kind, command;
            words >> kind >> command >> std::ws;
            if (kind == kinds.at(m_letter.message.index()))
                obey(command, words);
        }
        const std::array<Message, 3> answers{m_properties, m_thumbnail, m_finished};
        m_channel.send(answers.at(m_letter.message.index()));
    }

private:
    void obey(const std::string& command, std::istringstream& words) {
        if (command == "die")
            ::raise(SIGKILL);
        else if (command == "hang")
            hang();
        else if (command == "hangonce")
            hangOnce(rest(words));
        else if (command == "fail")
            m_finished.problem = rest(words);
        else if (command == "properties")
            takeProperties(words);
        else if (command == "picture")
            drawPicture(words);
        else if (command == "claim")
            words >> m_thumbnail.width >> m_thumbnail.height;
        else if (command == "descriptors")
            m_thumbnail.problem = openDescriptors();
        else if (command == "write")
            writeAll(m_letter.descriptors.at(1).number(), rest(words));
        else if (command == "await")
            await(rest(words));
        else if (command == "progress")
            sendProgress(words);
        else
            ::abort();
    }

    void takeProperties(std::istringstream& words) {
        VideoTrackProperties track;
        m_properties.isPlayable = m_properties.isExportable = true;
        m_properties.estimatedBytes = {10, 20, 30, 0};
        words >> m_properties.duration.value >> m_properties.duration.timescale;
        if (words >> track.naturalWidth >> track.naturalHeight) {
            for (double& value : track.transform)
                words >> value;
            m_properties.videoTrack = track;
        }
    }

    void drawPicture(std::istringstream& words) {
        words >> m_thumbnail.width >> m_thumbnail.height;
        const auto bytes = static_cast<std::size_t>(m_thumbnail.width * m_thumbnail.height * 4);
        writeAll(m_letter.descriptors.at(1).number(), std::string(bytes, 'x'));
    }

    void sendProgress(std::istringstream& words) {
        ExportProgress progress;
        words >> progress.fraction;
        m_channel.send(progress);
    }

    Channel& m_channel;
    const Letter& m_letter;
    AssetProperties m_properties;
    ThumbnailReply m_thumbnail;
    ExportFinished m_finished;
};

} // namespace

int main() {
    Channel channel{Descriptor(channelDescriptor)};
    for (;;) {
        Letter letter;
        if (channel.receive(letter) != Channel::Status::Received)
            return 0;
        Request(channel, letter).answer();
    }
}
