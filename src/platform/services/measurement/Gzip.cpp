// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/Gzip.h"

#include <QtGlobal>
#include <zlib.h>

namespace reelsmith {

namespace {

constexpr int windowBits = 15;
constexpr int gzipFormat = 16; // added to the window bits
constexpr int memoryLevel = 8;

} // namespace

QByteArray gzip(const QByteArray& data) {
    z_stream stream{};
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, windowBits + gzipFormat, memoryLevel,
                     Z_DEFAULT_STRATEGY) != Z_OK)
        qFatal("zlib cannot begin");
    const auto bound = deflateBound(&stream, static_cast<uLong>(data.size()));
    QByteArray result(static_cast<qsizetype>(bound), Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.constData()));
    stream.avail_in = static_cast<uInt>(data.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(bound);
    deflate(&stream, Z_FINISH); // within the bound it always comes to its end
    result.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return result;
}

} // namespace reelsmith
