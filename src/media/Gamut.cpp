// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Gamut.h"

extern "C" {
#include <libavutil/csp.h>
}

namespace reelsmith::media {

namespace {

/// CIE XYZ of a chromaticity, at a luminance of 1.
Light xyz(const AVCIExy& point) {
    const double x = av_q2d(point.x);
    const double y = av_q2d(point.y);
    return {x / y, 1, (1 - x - y) / y};
}

LightMatrix inverse(const LightMatrix& m) {
    LightMatrix adjugate{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            const std::size_t r1 = (column + 1) % 3, r2 = (column + 2) % 3;
            const std::size_t c1 = (row + 1) % 3, c2 = (row + 2) % 3;
            adjugate[row][column] = m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1];
        }
    }
    const double determinant = m[0][0] * adjugate[0][0] + m[0][1] * adjugate[1][0] + m[0][2] * adjugate[2][0];
    for (Light& row : adjugate) {
        for (double& entry : row)
            entry /= determinant;
    }
    return adjugate;
}

/// Takes linear RGB to XYZ, white having a luminance of 1.
LightMatrix rgbToXyz(AVColorPrimaries primaries) {
    const AVColorPrimariesDesc* known = av_csp_primaries_desc_from_id(primaries);
    const AVColorPrimariesDesc& description =
        known ? *known : *av_csp_primaries_desc_from_id(AVCOL_PRI_BT2020);
    const std::array<Light, 3> ends{xyz(description.prim.r), xyz(description.prim.g),
                                    xyz(description.prim.b)};
    LightMatrix matrix{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t primary = 0; primary < 3; ++primary)
            matrix[row][primary] = ends[primary][row];
    }
    const Light shares = inverse(matrix) * xyz(description.wp);
    for (Light& row : matrix) {
        for (std::size_t primary = 0; primary < 3; ++primary)
            row[primary] *= shares[primary];
    }
    return matrix;
}

} // namespace

Light operator*(const LightMatrix& matrix, const Light& light) {
    Light result{};
    for (std::size_t row = 0; row < 3; ++row)
        result[row] = matrix[row][0] * light[0] + matrix[row][1] * light[1] + matrix[row][2] * light[2];
    return result;
}

Light luminanceWeights(AVColorPrimaries primaries) {
    return rgbToXyz(primaries)[1];
}

LightMatrix gamutToBt709(AVColorPrimaries from) {
    const LightMatrix source = rgbToXyz(from);
    const LightMatrix target = inverse(rgbToXyz(AVCOL_PRI_BT709));
    LightMatrix result{};
    for (std::size_t column = 0; column < 3; ++column) {
        const Light primary = target * Light{source[0][column], source[1][column], source[2][column]};
        for (std::size_t row = 0; row < 3; ++row)
            result[row][column] = primary[row];
    }
    const Light white = result * Light{1, 1, 1};
    for (std::size_t row = 0; row < 3; ++row) {
        for (double& entry : result[row])
            entry /= white[row];
    }
    return result;
}

} // namespace reelsmith::media
