// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ToneTable.h"

#include "media/Gamut.h"
#include "media/TransferFunctions.h"

#include <algorithm>
#include <cmath>

namespace reelsmith::media {

namespace {

constexpr double unitNits = 100;

/// Share of red, green and blue in the luma of BT.709.
constexpr Light luma{0.2126, 0.7152, 0.0722};

/// A filmic curve by John Hable (Uncharted 2): nearly straight in the shadows, with a long shoulder.
double filmic(double light) {
    constexpr double a = 0.15, b = 0.50, c = 0.10, d = 0.20, e = 0.02, f = 0.30;
    return (light * (light * a + b * c) + d * e) / (light * (light * a + b) + d * f) - e / f;
}

/// Follows one colour from the source's signals to those of an SDR display.
class ToneMap {
public:
    ToneMap(const ColourTags& source, double peakNits)
        : m_isHlg(source.transfer == AVCOL_TRC_ARIB_STD_B67),
          m_luminance(luminanceWeights(source.primaries)),
          m_toBt709(gamutToBt709(source.primaries)),
          m_peak(filmic((m_isHlg ? hlgPeakNits : std::clamp(peakNits, unitNits, 10000.0)) / unitNits)) {}

    Light operator()(const Light& signal) const {
        Light light = m_toBt709 * decoded(signal);
        const double strongest = std::max({light[0], light[1], light[2], 1e-6});
        const double scale = filmic(strongest) / (m_peak * strongest);
        for (double& primary : light)
            primary = sdrSignal(primary * scale);
        return light;
    }

private:
    /// Light on the display that the source is meant for, in units of unitNits.
    Light decoded(Light light) const {
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
    Light m_luminance;
    LightMatrix m_toBt709;
    double m_peak;
};

/// The entry for signals in BT.709.
std::uint64_t packed(const Light& signal) {
    const double y = luma[0] * signal[0] + luma[1] * signal[1] + luma[2] * signal[2];
    const double cb = (signal[2] - y) / (2 - 2 * luma[2]);
    const double cr = (signal[0] - y) / (2 - 2 * luma[0]);
    std::uint64_t entry = 0;
    for (const double code : {128 + 224 * cr, 128 + 224 * cb, 16 + 219 * y})
        entry = entry << ToneTable::fieldBits |
                static_cast<std::uint64_t>(std::lround(code * (1 << ToneTable::fractionBits)));
    return entry;
}

} // namespace

ToneTable::ToneTable(const ColourTags& source, double peakNits) {
    const ToneMap map(source, peakNits);
    const auto signal = [](int node) { return static_cast<double>(node) / whiteNode; };
    m_entries.reserve(std::size_t{blueStep} * (cells + 1));
    for (int blue = 0; blue <= cells; ++blue) {
        for (int green = 0; green <= cells; ++green) {
            for (int red = 0; red <= cells; ++red)
                m_entries.push_back(packed(map({signal(red), signal(green), signal(blue)})));
        }
    }
}

} // namespace reelsmith::media
