// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/FramePicture.h"

#include <QTransform>
#include <QVideoFrame>
#include <algorithm>

namespace reelsmith {

namespace {

constexpr int fractionBits = 16;

/// What makes red, green and blue of brightness and two colour differences, in fixed point.
struct Conversion {
    int black, brightness, redOfV, greenOfU, greenOfV, blueOfU;
};

struct Weights {
    double red, blue;
};

// Without a word in the file, large pictures are of the high-definition kind.
Weights weights(const QVideoFrameFormat& format) {
    constexpr int firstLargeHeight = 577;
    switch (format.colorSpace()) {
    case QVideoFrameFormat::ColorSpace_BT2020:
        return {0.2627, 0.0593};
    case QVideoFrameFormat::ColorSpace_BT601:
        return {0.299, 0.114};
    case QVideoFrameFormat::ColorSpace_BT709:
        return {0.2126, 0.0722};
    default:
        return format.frameHeight() < firstLargeHeight ? Weights{0.299, 0.114} : Weights{0.2126, 0.0722};
    }
}

Conversion conversion(const QVideoFrameFormat& format) {
    const bool isFull = format.colorRange() == QVideoFrameFormat::ColorRange_Full;
    const double brightness = isFull ? 1 : 255.0 / 219;
    const double difference = isFull ? 1 : 255.0 / 224;
    const auto [red, blue] = weights(format);
    const double green = 1 - red - blue;
    const auto fixed = [](double factor) { return qRound(factor * (1 << fractionBits)); };
    return {isFull ? 0 : 16,
            fixed(brightness),
            fixed(difference * 2 * (1 - red)),
            fixed(-difference * 2 * (1 - blue) * blue / green),
            fixed(-difference * 2 * (1 - red) * red / green),
            fixed(difference * 2 * (1 - blue))};
}

/// Where the differences of a row are: each serves two pixels, and is so far from the next.
struct Differences {
    const uchar* u;
    const uchar* v;
    int step;
};

void convertRow(const uchar* luma, const Differences& chroma, int width, const Conversion& by, QRgb* pixels) {
    constexpr int half = 1 << (fractionBits - 1);
    const auto level = [](int value) {
        return static_cast<unsigned>(std::clamp(value >> fractionBits, 0, 255));
    };
    for (int x = 0; x < width; ++x) {
        const int bright = (luma[x] - by.black) * by.brightness + half;
        const int u = chroma.u[x / 2 * chroma.step] - 128;
        const int v = chroma.v[x / 2 * chroma.step] - 128;
        pixels[x] = 0xFF000000U | level(bright + v * by.redOfV) << 16 |
                    level(bright + u * by.greenOfU + v * by.greenOfV) << 8 | level(bright + u * by.blueOfU);
    }
}

// The kinds that decoders of 8-bit video hand out; Qt knows the others, if not their colours.
bool isKnown(QVideoFrameFormat::PixelFormat format) {
    return format == QVideoFrameFormat::Format_YUV420P || format == QVideoFrameFormat::Format_NV12;
}

QImage converted(const QVideoFrame& frame) {
    const bool isPlanar = frame.pixelFormat() == QVideoFrameFormat::Format_YUV420P;
    const Conversion by = conversion(frame.surfaceFormat());
    QImage picture(frame.size(), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        const uchar* const u = frame.bits(1) + y / 2 * frame.bytesPerLine(1);
        const Differences chroma = isPlanar ? Differences{u, frame.bits(2) + y / 2 * frame.bytesPerLine(2), 1}
                                            : Differences{u, u + 1, 2};
        convertRow(frame.bits(0) + y * frame.bytesPerLine(0), chroma, picture.width(), by,
                   reinterpret_cast<QRgb*>(picture.scanLine(y)));
    }
    return picture;
}

QImage upright(const QImage& picture, const QVideoFrame& frame) {
    QTransform turn;
    if (frame.mirrored())
        turn.scale(-1, 1);
    turn.rotate(static_cast<int>(frame.rotationAngle()));
    return turn.isIdentity() ? picture : picture.transformed(turn);
}

} // namespace

QImage framePicture(const QVideoFrame& frame) {
    QVideoFrame mapped = frame;
    if (!isKnown(frame.pixelFormat()) || !mapped.map(QVideoFrame::ReadOnly))
        return frame.toImage();
    const QImage picture = converted(mapped);
    mapped.unmap();
    return upright(picture, frame);
}

} // namespace reelsmith
