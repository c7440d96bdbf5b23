// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Downmix.h"

#include <array>
#include <numbers>

namespace reelsmith::media {

namespace {

constexpr double minus3dB = std::numbers::sqrt2 / 2;

/// Share of the left and the right side.
using Shares = std::array<double, 2>;

constexpr Shares left{1, 0};
constexpr Shares right{0, 1};
constexpr Shares centre{minus3dB, minus3dB};
constexpr Shares surroundLeft{minus3dB, 0};
constexpr Shares surroundRight{0, minus3dB};
constexpr Shares surroundCentre{0.5, 0.5};
constexpr Shares nothing{0, 0};

Shares sharesOf(AVChannel channel) {
    switch (channel) {
    case AV_CHAN_FRONT_LEFT:
    case AV_CHAN_FRONT_LEFT_OF_CENTER:
    case AV_CHAN_STEREO_LEFT:
        return left;
    case AV_CHAN_FRONT_RIGHT:
    case AV_CHAN_FRONT_RIGHT_OF_CENTER:
    case AV_CHAN_STEREO_RIGHT:
        return right;
    case AV_CHAN_BACK_LEFT:
    case AV_CHAN_SIDE_LEFT:
    case AV_CHAN_WIDE_LEFT:
    case AV_CHAN_SURROUND_DIRECT_LEFT:
    case AV_CHAN_TOP_FRONT_LEFT:
    case AV_CHAN_TOP_SIDE_LEFT:
    case AV_CHAN_TOP_BACK_LEFT:
    case AV_CHAN_BOTTOM_FRONT_LEFT:
        return surroundLeft;
    case AV_CHAN_BACK_RIGHT:
    case AV_CHAN_SIDE_RIGHT:
    case AV_CHAN_WIDE_RIGHT:
    case AV_CHAN_SURROUND_DIRECT_RIGHT:
    case AV_CHAN_TOP_FRONT_RIGHT:
    case AV_CHAN_TOP_SIDE_RIGHT:
    case AV_CHAN_TOP_BACK_RIGHT:
    case AV_CHAN_BOTTOM_FRONT_RIGHT:
        return surroundRight;
    case AV_CHAN_BACK_CENTER:
    case AV_CHAN_TOP_CENTER:
    case AV_CHAN_TOP_FRONT_CENTER:
    case AV_CHAN_TOP_BACK_CENTER:
    case AV_CHAN_BOTTOM_FRONT_CENTER:
        return surroundCentre;
    case AV_CHAN_LOW_FREQUENCY:
    case AV_CHAN_LOW_FREQUENCY_2:
    case AV_CHAN_UNUSED:
        return nothing;
    default:
        // Of a sound field only the component without direction is of use here.
        return channel > AV_CHAN_AMBISONIC_BASE && channel <= AV_CHAN_AMBISONIC_END ? nothing : centre;
    }
}

} // namespace

std::vector<double> downmixMatrix(const AVChannelLayout& from, int channels) {
    const auto count = static_cast<std::size_t>(from.nb_channels);
    std::vector<double> matrix(count * static_cast<std::size_t>(channels));
    for (std::size_t i = 0; i < count; ++i) {
        const Shares shares = sharesOf(av_channel_layout_channel_from_index(&from, static_cast<unsigned>(i)));
        if (channels == 1) {
            matrix[i] = (shares[0] + shares[1]) * minus3dB;
        } else {
            matrix[i] = shares[0];
            matrix[count + i] = shares[1];
        }
    }
    return matrix;
}

} // namespace reelsmith::media
