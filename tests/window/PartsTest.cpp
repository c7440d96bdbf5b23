// SPDX-License-Identifier: GPL-3.0-or-later
#include "Stage.h"

#include "platform/uikit/KeyboardManager.h"
#include "window/PictureItem.h"

#include <QAccessible>
#include <gtest/gtest.h>

namespace reelsmith {
namespace {

TEST(Pressable, AnswersToFingerSpaceAndReturnWhileEnabled) {
    Stage stage(R"(Item {
        property int presses: 0
        Button { objectName: "button"; width: parent.width; label: "Go"; focus: true; onClicked: parent.presses++ }
    })");
    const auto pressEveryWay = [&] {
        stage.item("button").forceActiveFocus();
        stage.click(stage.place("button").center());
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
            stage.press(key);
        return stage.root().property("presses").toInt();
    };
    EXPECT_EQ(pressEveryWay(), 4);
    stage.item("button").setProperty("isEnabled", false);
    EXPECT_EQ(pressEveryWay(), 4);
}

/// What a screen reader hears of an item and of all in it, in order: each one's role, and whether it is
/// chosen.
QList<std::pair<int, bool>> heard(QAccessibleInterface& item) {
    QList<std::pair<int, bool>> all = {{item.role(), item.state().checked || item.state().selected}};
    for (int i = 0; i < item.childCount(); ++i) {
        if (!item.child(i)->state().invisible)
            all += heard(*item.child(i));
    }
    return all;
}

TEST(Parts, AreHeardAsWhatTheyAre) {
    const struct {
        QByteArray qml;
        QList<std::pair<int, bool>> heard;
    } cases[] = {
        {"MenuRow {}", {{QAccessible::MenuItem, false}}},
        {"Switch { checked: true }", {{QAccessible::CheckBox, true}}},
        {"ActionRow { label: 'a'; isInformation: true }", {{QAccessible::StaticText, false}}},
    };
    QAccessible::setActive(true);
    for (const auto& [qml, expected] : cases) {
        Stage stage("Item { " + qml + " }");
        QAccessibleInterface& window = *QAccessible::queryAccessibleInterface(&stage.window());
        EXPECT_EQ(heard(window).mid(1), expected) << qml.constData();
    }
    QAccessible::setActive(false);
}

TEST(Choices, FollowTheArrowKeysUpToTheirEnds) {
    const QByteArray segments =
        "Segments { segments: [{title: 'a', note: ''}, {title: 'b', note: ''}]; focus: true; "
        "onActivated: index => currentIndex = index }";
    const QByteArray stars = "StarRow { focus: true; onActivated: stars => value = stars }";
    const struct {
        QByteArray qml;
        const char* property;
        std::vector<int> afterRight;
        std::vector<int> afterLeft;
    } cases[] = {
        {segments, "currentIndex", {1, 1}, {0, 0}},
        {stars, "value", {1, 2, 3, 4, 5, 5}, {4, 3, 2, 1, 1}},
    };
    for (const auto& choice : cases) {
        Stage stage(choice.qml);
        for (const auto& [key, values] :
             {std::pair(Qt::Key_Right, choice.afterRight), std::pair(Qt::Key_Left, choice.afterLeft)}) {
            for (const int expected : values) {
                stage.press(key);
                EXPECT_EQ(stage.root().property(choice.property).toInt(), expected) << choice.property;
            }
        }
    }
}

/// A sheet with more in it than a low window has room for.
const QByteArray fullSheet = R"(BottomSheet {
    property int dimTaps: 0
    onDimTapped: dimTaps++
    header: StyledText { objectName: "header"; text: "Header" }
    footer: Button { objectName: "footer"; width: parent.width; label: "Go" }
    Rectangle { width: parent.width; height: 300 }
    TextField { objectName: "field"; width: parent.width; label: "Name" }
    Rectangle { width: parent.width; height: 100 }
})";

TEST(BottomSheet, KeepsHeaderButtonAndFocusedFieldInSightInEveryWindow) {
    KeyboardManager::shared().setEnabled(true);
    Stage stage(fullSheet);
    stage.item("field").forceActiveFocus();
    for (const QSize size : {QSize(390, 844), QSize(360, 412), QSize(844, 390), QSize(1280, 800)}) {
        stage.resize(size);
        const QRectF window(QPointF(), size);
        const QRectF sight = window.adjusted(0, 8, 0, -8);
        EXPECT_TRUE(sight.contains(stage.place("header"))) << size.width();
        EXPECT_TRUE(sight.contains(stage.place("footer"))) << size.width();
        EXPECT_GT(stage.place("field").top(), stage.place("header").bottom()) << size.width();
        EXPECT_LT(stage.place("field").bottom(), stage.place("footer").top()) << size.width();
        EXPECT_LE(stage.place("footer").width(), 480) << size.width();
    }
    stage.resize({720, 180}); // a phone lying down, with its keyboard
    EXPECT_TRUE(QRectF(0, 8, 720, 164).contains(stage.place("field")));
    EXPECT_LE(stage.place("header").bottom(), stage.place("field").top());
    EXPECT_GE(stage.place("footer").top(), stage.place("field").bottom());
}

TEST(BottomSheet, TellsAPressBesideItOnly) {
    Stage stage(fullSheet);
    stage.click(stage.place("header").center());
    EXPECT_EQ(stage.root().property("dimTaps").toInt(), 0);
    stage.click({195, 20});
    EXPECT_EQ(stage.root().property("dimTaps").toInt(), 1);
}

TEST(Screen, TakesNoTimeToComeWhereTheUserWantsNoMotion) {
    Stage stage("Screen {}");
    stage.appearance().setDurationsScale(1);
    EXPECT_GT(stage.root().property("appearDuration").toInt(), 0);
    stage.appearance().setStill(true);
    EXPECT_EQ(stage.root().property("appearDuration").toInt(), 0);
}

TEST(Screen, ComesFromTheSideOrFromBelowOrOnlyFades) {
    Stage stage(R"(Item { Screen { objectName: "screen"; anchors.fill: parent } })");
    QQuickItem& screen = stage.item("screen");
    const auto topLeft = [&] { return screen.mapToScene({0, 0}); };
    screen.setProperty("slide", 1);
    EXPECT_EQ(topLeft(), QPointF(390, 0));
    screen.setProperty("slide", -1);
    EXPECT_EQ(topLeft(), QPointF(-117, 0));
    screen.setProperty("slide", 0);
    screen.setProperty("presence", 0);
    EXPECT_EQ(topLeft(), QPointF(0, 844));

    screen.setProperty("dissolves", true);
    EXPECT_EQ(topLeft(), QPointF(0, 0));
    EXPECT_EQ(screen.opacity(), 0);
    screen.setProperty("presence", 1);
    EXPECT_EQ(topLeft(), QPointF(0, 0));
    EXPECT_EQ(screen.opacity(), 1);
}

TEST(TextField, OffersToClearWhatItHolds) {
    Stage stage(R"(TextField { text: "holiday"; label: "Name"; selectsOnFocus: true; focus: true })");
    EXPECT_EQ(stage.root().property("selectedText").toString(), "holiday");
    stage.click({390 - 4 - 22, 422});
    EXPECT_EQ(stage.root().property("text").toString(), "");
}

TEST(TextField, ShowsItsBeginningOnceItIsLeft) {
    Stage stage(R"(Item {
        TextField { objectName: "name"; text: "holiday"; selectsOnFocus: true; focus: true }
        Button { objectName: "next" }
    })");
    EXPECT_EQ(stage.item("name").property("cursorPosition"), 7);
    stage.item("next").forceActiveFocus();
    EXPECT_EQ(stage.item("name").property("cursorPosition"), 0);
    EXPECT_EQ(stage.item("name").property("selectedText"), "");
}

TEST(ContextMenu, LeavesInSightWhatItIsFor) {
    const struct {
        QSize window;
        QRectF anchor;
    } cases[] = {
        {{390, 844}, {20, 100, 167, 167}},  // where there is room below
        {{390, 844}, {203, 600, 167, 167}}, // above
        {{844, 390}, {202, 97, 167, 167}},  // only beside, at the right
        {{844, 390}, {475, 97, 167, 167}},  // at the left
    };
    for (const auto& [window, anchor] : cases) {
        Stage stage(R"(ContextMenu {
            actions: ["Share", "Play", "Delete"].map(title => ({ title, image: "share", isDestructive: false }))
        })",
                    window);
        stage.root().setProperty("anchorRect", anchor);
        const QQuickItem& menu = *stage.window().activeFocusItem()->parentItem();
        const QRectF place = menu.mapRectToScene(menu.boundingRect());
        EXPECT_FALSE(place.intersects(anchor)) << window.width() << ", " << anchor.x();
        EXPECT_TRUE(QRectF({}, window).contains(place)) << window.width() << ", " << anchor.x();
    }
}

TEST(SteadyDigits, AreAsWideWhateverTheNumber) {
    Stage stage(R"(Column {
        SteadyDigits { objectName: "narrow"; text: "11:11" }
        SteadyDigits { objectName: "wide"; text: "08:40" }
    })");
    EXPECT_EQ(stage.item("narrow").width(), stage.item("wide").width());
}

TEST(Picture, FillsItsPlaceButForTheRoundCorners) {
    Stage stage(
        R"(Rectangle { color: "black"; Picture { objectName: "picture"; width: 100; height: 60; radius: 20 } })");
    ImageView outlet;
    auto& picture = *stage.item("picture").findChild<PictureItem*>();
    stage.item("picture").setProperty("source", QVariant::fromValue(&outlet));
    const auto isWhite = [&](QPoint at) { return stage.window().grabWindow().pixelColor(at) == "white"; };
    EXPECT_FALSE(picture.hasPicture() || isWhite({10, 30}));

    outlet.setImage(UIImage({16, 9, QByteArray(4 * 16 * 9, '\xff')}));
    EXPECT_TRUE(picture.hasPicture());
    for (const QPoint inside : {QPoint(1, 30), QPoint(98, 30), QPoint(50, 1), QPoint(50, 58)})
        EXPECT_TRUE(isWhite(inside)) << inside.x() << ' ' << inside.y();
    EXPECT_FALSE(isWhite({1, 1}));
}

} // namespace
} // namespace reelsmith
