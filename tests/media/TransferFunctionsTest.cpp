// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/TransferFunctions.h"

#include "media/Gamut.h"

#include <gtest/gtest.h>

using namespace reelsmith::media;

TEST(TransferFunctions, PqAndHlgAreThoseOfTheStandard) {
    EXPECT_EQ(pqToNits(-0.1), 0);
    EXPECT_EQ(pqToNits(0), 0);
    EXPECT_NEAR(pqToNits(0.5081), 100, 0.1);
    EXPECT_NEAR(pqToNits(0.5807), 203, 0.2);
    EXPECT_NEAR(pqToNits(0.7518), 1000, 1);
    EXPECT_NEAR(pqToNits(1), 10000, 1e-6);
    EXPECT_EQ(hlgToSceneLight(-0.1), 0);
    EXPECT_NEAR(hlgToSceneLight(0.5), 1.0 / 12, 1e-9);
    EXPECT_NEAR(hlgToSceneLight(1), 1, 1e-6);
    const double referenceWhite = hlgToSceneLight(0.75);
    EXPECT_NEAR(referenceWhite * hlgSceneToNits(referenceWhite), 203, 1);
    EXPECT_NEAR(hlgSceneToNits(1), hlgPeakNits, 1e-6);
}

TEST(Gamut, Bt2020IsConvertedAsInItuRBt2087AndWhiteStaysWhiteFromAnywhere) {
    const LightMatrix matrix = gamutToBt709(AVCOL_PRI_BT2020);
    const LightMatrix expected{
        {{1.6605, -0.5876, -0.0728}, {-0.1246, 1.1329, -0.0083}, {-0.0182, -0.1006, 1.1187}}};
    for (std::size_t i = 0; i < 9; ++i)
        EXPECT_NEAR(matrix[i / 3][i % 3], expected[i / 3][i % 3], 1e-4) << i;
    EXPECT_NEAR(luminanceWeights(AVCOL_PRI_BT2020)[1], 0.6780, 1e-4);
    for (const auto primaries : {AVCOL_PRI_BT709, AVCOL_PRI_BT2020, AVCOL_PRI_SMPTE432, AVCOL_PRI_SMPTE431,
                                 AVCOL_PRI_SMPTE170M, AVCOL_PRI_UNSPECIFIED}) {
        for (const double primary : gamutToBt709(primaries) * Light{1, 1, 1})
            EXPECT_NEAR(primary, 1, 1e-9) << primaries;
    }
}
