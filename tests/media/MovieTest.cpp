// SPDX-License-Identifier: GPL-3.0-or-later
#include "MovieTest.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

extern "C" {
#include <libavutil/log.h>
}

namespace reelsmith::media {

MovieTest::MovieTest() {
    av_log_set_level(AV_LOG_QUIET);
    std::string pattern = std::filesystem::temp_directory_path() / "reelsmith-XXXXXX";
    const char* made = ::mkdtemp(pattern.data());
    EXPECT_NE(made, nullptr);
    m_folder = made ? made : "";
}

MovieTest::~MovieTest() {
    std::filesystem::remove_all(m_folder);
}

std::string MovieTest::make(const std::string& name, const std::string& arguments) const {
    const std::string command =
        "cd '" + m_folder + "' && ffmpeg -nostdin -v error -y " + arguments + " '" + name + "'";
    if (std::system(command.c_str()) != 0)
        throw std::runtime_error(command);
    return path(name);
}

std::string MovieTest::write(const std::string& name, const std::string& contents) const {
    std::ofstream(path(name), std::ios::binary) << contents;
    return path(name);
}

std::string MovieTest::contents(const std::string& path) {
    std::ostringstream all;
    all << std::ifstream(path, std::ios::binary).rdbuf();
    return all.str();
}

std::string MovieTest::turned(const std::string& source, const std::array<double, 4>& transform) const {
    std::string bytes = contents(source);
    constexpr std::size_t matrixInHeader = 44;
    const std::size_t matrix = bytes.find("tkhd") + matrixInHeader;
    const auto put = [&](std::size_t entry, double value) {
        const auto fixed = static_cast<std::uint32_t>(std::lround(value * 65536));
        for (std::size_t i = 0; i < 4; ++i)
            bytes[matrix + 4 * entry + i] = static_cast<char>(fixed >> (24 - 8 * i));
    };
    put(0, transform[0]);
    put(1, transform[1]);
    put(3, transform[2]);
    put(4, transform[3]);
    return write("turned.mp4", bytes);
}

MovieTest::Exported MovieTest::tryExport(const std::string& source, Preset preset,
                                         const std::vector<std::string>& languages) const {
    Exported exported;
    exported.path = path("result.mp4");
    const OpenFile from(source, O_RDONLY);
    const OpenFile to(exported.path, O_RDWR | O_CREAT | O_TRUNC);
    exported.result = exportVideo({from.descriptor(), to.descriptor(), preset, languages},
                                  [&](double fraction) { exported.progress.push_back(fraction); });
    return exported;
}

Movie MovieTest::convert(const std::string& source, Preset preset,
                         const std::vector<std::string>& languages) const {
    const Exported exported = tryExport(source, preset, languages);
    if (!exported.result)
        throw std::runtime_error(source + ": " + exported.result.error().text);
    return Movie::read(exported.path);
}

std::string clockPictures(double rate, double seconds, const std::string& timing) {
    return "-f lavfi -i \"nullsrc=s=64x48:r=" + std::to_string(rate) + ":d=" + std::to_string(seconds) +
           (timing.empty() ? "" : "," + timing) + ",geq=lum='20+100*T':cb=128:cr=128,format=yuv420p\" ";
}

std::string tone(const std::string& amplitude, double seconds, const std::string& options) {
    return "-f lavfi -i \"aevalsrc='(" + amplitude + ")*sin(2*PI*440*t)':d=" + std::to_string(seconds) +
           ":s=48000" + options + "\" ";
}

} // namespace reelsmith::media
