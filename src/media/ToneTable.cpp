// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ToneTable.h"

#include "media/Gamut.h"
#include "media/TransferFunctions.h"

#include <algorithm>
#include <cmath>

extern "C" {
#include <libavutil/csp.h>
}

namespace reelsmith::media {

namespace {

constexpr double unitNits = 100;

/// Y, Cb and Cr; 0…1 and twice -0.5…0.5.
using Signal = std::array<double, 3>;

/// Share of red, green and blue in Y.
Light lumaWeights(AVColorSpace matrix) {
    const AVLumaCoefficients* known = av_csp_luma_coeffs_from_avcsp(matrix);
    const AVLumaCoefficients& weights = known ? *known : *av_csp_luma_coeffs_from_avcsp(AVCOL_SPC_BT2020_NCL);
    return {av_q2d(weights.cr), av_q2d(weights.cg), av_q2d(weights.cb)};
}

/// A filmic curve by John Hable (Uncharted 2): nearly straight in the shadows, with a long shoulder.
double filmic(double light) {
    constexpr double a = 0.15, b = 0.50, c = 0.10, d = 0.20, e = 0.02, f = 0.30;
    return (light * (light * a + b * c) + d * e) / (light * (light * a + b) + d * f) - e / f;
}

/// Follows one colour from the source's signal to that of an SDR display.
class ToneMap {
public:
    ToneMap(const ColourTags& source, double peakNits)
        : m_isHlg(source.transfer == AVCOL_TRC_ARIB_STD_B67),
          m_luma(lumaWeights(source.matrix)),
          m_luminance(luminanceWeights(source.primaries)),
          m_toBt709(gamutToBt709(source.primaries)),
          m_peak(filmic((m_isHlg ? hlgPeakNits : std::clamp(peakNits, unitNits, 10000.0)) / unitNits)) {}

    Signal operator()(const Signal& signal) const {
        Light light = m_toBt709 * decoded(signal);
        const double strongest = std::max({light[0], light[1], light[2], 1e-6});
        const double scale = filmic(strongest) / (m_peak * strongest);
        for (double& primary : light)
            primary = sdrSignal(primary * scale);
        const Light luma = lumaWeights(AVCOL_SPC_BT709);
        const double y = luma[0] * light[0] + luma[1] * light[1] + luma[2] * light[2];
        return {y, (light[2] - y) / (2 - 2 * luma[2]), (light[0] - y) / (2 - 2 * luma[0])};
    }

private:
    /// Light on the display that the source is meant for, in units of unitNits.
    Light decoded(const Signal& signal) const {
        const double red = signal[0] + signal[2] * (2 - 2 * m_luma[0]);
        const double blue = signal[0] + signal[1] * (2 - 2 * m_luma[2]);
        const double green = (signal[0] - m_luma[0] * red - m_luma[2] * blue) / m_luma[1];
        Light light{red, green, blue};
        if (!m_isHlg) {
            for (double& primary : light)
                primary = pqToNits(primary) / unitNits;
            return light;
        }
        for (double& primary : light)
            primary = hlgToSceneLight(primary);
        const double luminance =
            m_luminance[0] * light[0] + m_luminance[1] * light[1] + m_luminance[2] * light[2];
        for (double& primary : light)
            primary *= hlgSceneToNits(luminance) / unitNits;
        return light;
    }

    bool m_isHlg;
    Light m_luma;
    Light m_luminance;
    LightMatrix m_toBt709;
    double m_peak;
};

std::uint64_t packed(const Signal& signal) {
    const std::array<double, 3> codes{16 + 219 * signal[0], 128 + 224 * signal[1], 128 + 224 * signal[2]};
    std::uint64_t entry = 0;
    for (std::size_t i = 3; i-- > 0;)
        entry = entry << ToneTable::fieldBits |
                static_cast<std::uint64_t>(std::lround(codes[i] * (1 << ToneTable::fractionBits)));
    return entry;
}

} // namespace

ToneTable::ToneTable(const ColourTags& source, double peakNits) {
    const bool isFull = source.range == AVCOL_RANGE_JPEG;
    const double black = isFull ? 0 : 16 * 256;
    const double lumaRange = isFull ? 65535 : 219 * 256;
    const double chromaRange = isFull ? 65535 : 224 * 256;
    const ToneMap map(source, peakNits);
    constexpr int lumaNodes = (65536 >> lumaCellBits) + 1;
    constexpr int chromaNodes = (65536 >> chromaCellBits) + 1;
    m_entries.reserve(static_cast<std::size_t>(lumaNodes) * chromaNodes * chromaNodes);
    const auto chroma = [chromaRange](int node) { return ((node << chromaCellBits) - 32768) / chromaRange; };
    for (int cr = 0; cr < chromaNodes; ++cr) {
        for (int cb = 0; cb < chromaNodes; ++cb) {
            for (int y = 0; y < lumaNodes; ++y)
                m_entries.push_back(
                    packed(map({((y << lumaCellBits) - black) / lumaRange, chroma(cb), chroma(cr)})));
        }
    }
}

} // namespace reelsmith::media
