// SPDX-License-Identifier: GPL-3.0-or-later
#include "Stage.h"

#include <QColor>
#include <cmath>
#include <gtest/gtest.h>

namespace reelsmith {
namespace {

/// How light a colour is: 0…1, as the accessibility guidelines count it.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double lighter = std::max(luminance(one), luminance(other));
    const double darker = std::min(luminance(one), luminance(other));
    return (lighter + 0.05) / (darker + 0.05);
}

QColor over(const QColor& ground, const QColor& colour, double opacity) {
    const auto mixed = [opacity](float above, float below) {
        return static_cast<float>(above * opacity + below * (1 - opacity));
    };
    return QColor::fromRgbF(mixed(colour.redF(), ground.redF()), mixed(colour.greenF(), ground.greenF()),
                            mixed(colour.blueF(), ground.blueF()));
}

/// The theme of the stage's engine.
class ThemeTest : public testing::Test {
protected:
    QVariant value(const char* name) {
        const QVariant value = qvariant_cast<QObject*>(m_stage.root().property("theme"))->property(name);
        EXPECT_TRUE(value.isValid()) << name;
        return value;
    }
    QColor colour(const char* name) { return value(name).value<QColor>(); }

    Stage m_stage{"Item { property QtObject theme: Theme }"};
};

struct Pair {
    const char* above;
    const char* below;
    double light;
    double dark;
};

TEST_F(ThemeTest, EveryTextIsReadableOnItsGround) {
    const Pair pairs[] = {
        {"ink", "canvas", 15.7, 16.4},          {"ink", "surface", 17.2, 14.5},
        {"inkSoft", "canvas", 6.4, 9.2},        {"inkSoft", "field", 5.9, 7.0},
        {"inkFaint", "field", 4.8, 5.3},        {"accent", "surface", 6.7, 8.9},
        {"accent", "accentSoft", 5.5, 6.7},     {"accentInk", "accent", 6.7, 8.3},
        {"danger", "surface", 6.5, 7.5},        {"danger", "dangerSoft", 5.5, 6.8},
        {"warn", "surface", 6.8, 9.3},          {"steel", "steelSoft", 5.3, 6.5},
        {"plum", "plumSoft", 5.7, 6.4},         {"segmentTitle", "segmentOn", 6.7, 5.9},
        {"segmentNote", "segmentOn", 7.0, 6.3}, {"heroText", "hero", 6.7, 8.8},
        {"heroNote", "hero", 5.3, 6.7},         {"heroNote", "heroDeep", 7.0, 8.3},
        {"star", "canvas", 3.5, 10.5},          {"accent", "field", 5.7, 7.5},
        {"gray", "surface", 8.6, 8.7},
    };
    for (const bool isDark : {false, true}) {
        m_stage.appearance().setDark(isDark);
        for (const Pair& pair : pairs)
            EXPECT_NEAR(contrast(colour(pair.above), colour(pair.below)), isDark ? pair.dark : pair.light,
                        0.07)
                << pair.above << " on " << pair.below << (isDark ? ", dark" : ", light");
        const QColor surface = colour("surface");
        const QColor tabTitle = over(surface, colour("gray"), value("tabTitleOpacity").toDouble());
        EXPECT_NEAR(contrast(tabTitle, surface), isDark ? 6.6 : 5.7, 0.07);
    }
}

TEST_F(ThemeTest, NamesAreReadableOverWhitePictures) {
    const QColor label = colour("label");
    EXPECT_GE(contrast(Qt::white, over(Qt::white, label, label.alphaF())), 7.2);

    // The top of the upper of two lines has the least of the scrim below it.
    const double textTop =
        value("tileNameMargin").toDouble() +
        2 * qvariant_cast<QObject*>(value("tileNameOnPicture"))->property("line").toDouble();
    const double fromTop = value("scrimHeight").toDouble() - textTop;
    const double middle = value("scrimHeight").toDouble() * (1 - value("scrimRest").toDouble());
    const double opacity = colour("scrimMiddle").alphaF() * fromTop / middle;
    EXPECT_GE(contrast(Qt::white, over(Qt::white, Qt::black, opacity)), 5.7);
}

} // namespace
} // namespace reelsmith
