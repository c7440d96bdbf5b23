// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// How light and signal belong together. Signals are 0…1 from black to nominal peak; what lies below is
/// black.
namespace reelsmith::media {

/// What an HLG signal of 1 shines like on the display that BT.2100 takes as its reference, in nits.
inline constexpr double hlgPeakNits = 1000;

/// SMPTE ST 2084 (PQ), also in ITU-R BT.2100: the light that a signal stands for, in nits, 10000 at most.
double pqToNits(double signal);

/// ITU-R BT.2100 (HLG, ARIB STD-B67): the light in front of the camera, 1 at a signal of 1.
double hlgToSceneLight(double signal);

/// ITU-R BT.2100: by what to multiply scene light to have it in nits on the reference display, given its
/// luminance (system gamma 1.2).
double hlgSceneToNits(double sceneLuminance);

/// ITU-R BT.1886: the signal with which an SDR display shows this light, 1 being its white.
double sdrSignal(double light);

} // namespace reelsmith::media
