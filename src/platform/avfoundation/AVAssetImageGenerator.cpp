// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/AVAssetImageGenerator.h"

#include "platform/avfoundation/MediaService.h"
#include "platform/avfoundation/SourceFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace reelsmith {

namespace {

using mediaworker::Descriptor;

constexpr qint64 bytesPerPixel = 4;

qint64 pictureBytes(int width, int height) {
    return bytesPerPixel * width * height;
}

/// Room for pixels in memory, of a size that the worker cannot change.
Result<Descriptor> makeCanvas(qint64 sizeBytes) {
    Descriptor canvas(::memfd_create("thumbnail", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!canvas.isOpen() || ::ftruncate(canvas.number(), sizeBytes) != 0 ||
        ::fcntl(canvas.number(), F_ADD_SEALS, F_SEAL_GROW | F_SEAL_SHRINK | F_SEAL_SEAL) != 0)
        return systemFailure(QStringLiteral("no memory for a picture"), errno);
    return canvas;
}

Result<CGImage> readPicture(const Descriptor& canvas, const mediaworker::ThumbnailReply& reply,
                            const QSize& maximumSize) {
    if (reply.width <= 0 || reply.height <= 0)
        return failure(reply.problem.empty() ? QStringLiteral("there is no picture")
                                             : QString::fromStdString(reply.problem));
    if (reply.width > maximumSize.width() || reply.height > maximumSize.height())
        return failure(QStringLiteral("the media worker made a picture larger than asked for"));
    CGImage image{reply.width, reply.height,
                  QByteArray(pictureBytes(reply.width, reply.height), Qt::Uninitialized)};
    if (::pread(canvas.number(), image.pixels.data(), static_cast<std::size_t>(image.pixels.size()), 0) !=
        image.pixels.size())
        return systemFailure(QStringLiteral("cannot read the picture"), errno);
    return image;
}

} // namespace

Result<CGImage> AVAssetImageGenerator::copyCGImage(CMTime time) const {
    if (!appliesPreferredTrackTransform)
        return failure(QStringLiteral("pictures are upright only"));
    auto source = openSourceFile(m_asset.url());
    if (!source)
        return tl::unexpected(source.error());
    auto canvas = makeCanvas(pictureBytes(maximumSize.width(), maximumSize.height()));
    if (!canvas)
        return tl::unexpected(canvas.error());
    // The request keeps its own descriptor open for as long as the worker may want it.
    Descriptor handedOver(::fcntl(canvas->number(), F_DUPFD_CLOEXEC, 0));
    const mediaworker::ThumbnailRequest question{
        {time.value, time.timescale}, maximumSize.width(), maximumSize.height()};
    const auto request = std::make_shared<MediaRequest>(question, std::move(*source), std::move(handedOver));
    MediaService::pictures().ask(request);
    const MediaRequest::Answer& answer = request->answer();
    if (!answer)
        return tl::unexpected(answer.error());
    return readPicture(*canvas, std::get<mediaworker::ThumbnailReply>(*answer), maximumSize);
}

} // namespace reelsmith
