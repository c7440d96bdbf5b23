// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/IndexRoom.h"

#include <algorithm>
#include <climits>

extern "C" {
#include <libavutil/opt.h>
}

namespace reelsmith::media {

namespace {

/// More than the index (ISO/IEC 14496-12, 8.1 to 8.8) of so many packets can take.
std::int64_t largestIndex(const AVFormatContext& file, std::int64_t packetCount) {
    // stts, ctts, stsz, stss, stsc, co64, sdtp, each with an entry of its own for every packet.
    constexpr std::int64_t packetBytes = 8 + 8 + 4 + 4 + 12 + 8 + 1;
    constexpr std::int64_t trackBytes = 4096;
    // A title stands in a list and in a track of its own.
    constexpr std::int64_t chapterBytes = 1024;
    std::int64_t bytes = 4 * trackBytes + std::int64_t{file.nb_chapters} * chapterBytes;
    for (unsigned i = 0; i < file.nb_streams; ++i) {
        const AVCodecParameters* codec = file.streams[i]->codecpar;
        bytes += trackBytes + 2 * std::int64_t{codec->extradata_size};
    }
    return bytes + packetCount * packetBytes;
}

constexpr std::int64_t boxHeaderBytes = 8;

} // namespace

void IndexRoom::open(const AVFormatContext& file, AVDictionary** options) {
    m_roomBytes = std::min<std::int64_t>(largestIndex(file, m_packetCount) + boxHeaderBytes, INT_MAX);
    av_dict_set_int(options, "moov_size", m_roomBytes, 0);
}

void IndexRoom::settle(AVFormatContext& file, std::int64_t start, std::int64_t packetCount) const {
    if (largestIndex(file, packetCount) + boxHeaderBytes <= m_roomBytes)
        return;
    const std::int64_t end = avio_tell(file.pb);
    avio_seek(file.pb, start, SEEK_SET);
    avio_wb32(file.pb, static_cast<unsigned>(m_roomBytes));
    avio_write(file.pb, reinterpret_cast<const unsigned char*>("free"), 4);
    avio_seek(file.pb, end, SEEK_SET);
    av_opt_set_int(file.priv_data, "moov_size", 0, 0);
    av_opt_set(file.priv_data, "movflags", "+faststart", 0);
}

} // namespace reelsmith::media
