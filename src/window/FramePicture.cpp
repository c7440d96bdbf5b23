// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/FramePicture.h"

#include <QTransform>
#include <QVideoFrame>
#include <algorithm>
#include <vector>

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

/// What the colour differences add to the red, green and blue of each pixel of two rows.
struct Tints {
    std::vector<int> red, green, blue;
};

/// Reads those of a row; each serves two pixels, and samples of either difference are `step` apart.
void readTints(const uchar* u, const uchar* v, int step, const Conversion& by, Tints& tints) {
    constexpr int half = 1 << (fractionBits - 1); // so that what follows rounds
    for (std::size_t x = 0; x < tints.red.size(); ++x) {
        const int du = u[static_cast<int>(x / 2) * step] - 128;
        const int dv = v[static_cast<int>(x / 2) * step] - 128;
        tints.red[x] = dv * by.redOfV + half;
        tints.green[x] = du * by.greenOfU + dv * by.greenOfV + half;
        tints.blue[x] = du * by.blueOfU + half;
    }
}

void convertRow(const uchar* luma, const Tints& tints, const Conversion& by, QRgb* pixels) {
    const int* const red = tints.red.data();
    const int* const green = tints.green.data();
    const int* const blue = tints.blue.data();
    const auto level = [](int value) {
        return static_cast<unsigned>(std::clamp(value >> fractionBits, 0, 255));
    };
    for (std::size_t x = 0; x < tints.red.size(); ++x) {
        const int bright = (luma[x] - by.black) * by.brightness;
        pixels[x] = 0xFF000000U | level(bright + red[x]) << 16 | level(bright + green[x]) << 8 |
                    level(bright + blue[x]);
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
    const std::vector<int> row(static_cast<std::size_t>(picture.width()));
    Tints tints{row, row, row};
    for (int y = 0; y < picture.height(); ++y) {
        if (y % 2 == 0) {
            const uchar* const u = frame.bits(1) + y / 2 * frame.bytesPerLine(1);
            const uchar* const v = isPlanar ? frame.bits(2) + y / 2 * frame.bytesPerLine(2) : u + 1;
            readTints(u, v, isPlanar ? 1 : 2, by, tints);
        }
        convertRow(frame.bits(0) + y * frame.bytesPerLine(0), tints, by,
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
