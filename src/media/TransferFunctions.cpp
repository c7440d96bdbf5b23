// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/TransferFunctions.h"

#include <algorithm>
#include <cmath>

namespace reelsmith::media {

double pqToNits(double signal) {
    constexpr double m1 = 2610.0 / 16384;
    constexpr double m2 = 2523.0 / 4096 * 128;
    constexpr double c1 = 3424.0 / 4096;
    constexpr double c2 = 2413.0 / 4096 * 32;
    constexpr double c3 = 2392.0 / 4096 * 32;
    const double power = std::pow(std::clamp(signal, 0.0, 1.0), 1 / m2);
    return 10000 * std::pow(std::max(power - c1, 0.0) / (c2 - c3 * power), 1 / m1);
}

double hlgToSceneLight(double signal) {
    constexpr double a = 0.17883277;
    constexpr double b = 1 - 4 * a;
    const double c = 0.5 - a * std::log(4 * a);
    if (signal <= 0.5)
        return std::max(signal, 0.0) * std::max(signal, 0.0) / 3;
    return (std::exp((signal - c) / a) + b) / 12;
}

double hlgSceneToNits(double sceneLuminance) {
    constexpr double systemGamma = 1.2;
    return hlgPeakNits * std::pow(std::max(sceneLuminance, 0.0), systemGamma - 1);
}

double sdrSignal(double light) {
    constexpr double gamma = 2.4;
    return std::pow(std::clamp(light, 0.0, 1.0), 1 / gamma);
}

} // namespace reelsmith::media
