// SPDX-License-Identifier: GPL-3.0-or-later
#include "Layout.h"
#include "Situations.h"

#include <QAccessible>
#include <QDir>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSignalSpy>
#include <functional>
#include <gtest/gtest.h>

namespace reelsmith {
namespace {

/// Runs `check` in each situation, and says in which it failed.
void inEverySituation(const std::function<void(TestApplication&, const Situation&)>& check) {
    for (const Situation& situation : situations()) {
        SCOPED_TRACE(situation.name);
        TestApplication application;
        situation.reach(application);
        application.settle();
        check(application, situation);
    }
}

// A new interface file belongs into the situations.
TEST(EveryScreen, IsSeenInSomeSituation) {
    QStringList unseen = QDir(":/qt/qml/Reelsmith/Screens").entryList({"*.qml"});
    ASSERT_FALSE(unseen.isEmpty());
    inEverySituation([&unseen](TestApplication& application, const Situation&) {
        for (const QQuickItem* item : visibleItems(application.frontItem())) {
            if (const QQmlContext* context = qmlContext(item))
                unseen.removeOne(context->baseUrl().fileName());
        }
    });
    EXPECT_EQ(unseen, QStringList());
}

TEST(EveryScreen, GoesBackByEscapeAndItsItemBeforeItself) {
    inEverySituation([](TestApplication& application, const Situation&) {
        for (int steps = 0; &application.frontScreen() != &application.root(); ++steps) {
            ASSERT_LT(steps, 3) << "it does not go";
            QStringList gone;
            const QObject step;
            QObject::connect(&application.frontItem(), &QObject::destroyed, &step,
                             [&] { gone.append("item"); });
            QObject::connect(&application.frontScreen(), &QObject::destroyed, &step,
                             [&] { gone.append("screen"); });
            application.press(Qt::Key_Escape);
            application.settle();
            EXPECT_TRUE(gone.isEmpty() || gone == QStringList({"item", "screen"}))
                << qPrintable(gone.join(' '));
        }
        EXPECT_TRUE(application.rootItem().isEnabled());
    });
}

TEST(EveryControl, HasANameARoleAndAFingertipsRoom) {
    inEverySituation([](TestApplication& application, const Situation&) {
        for (QQuickItem* control : controls(application.frontItem())) {
            QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(control);
            ASSERT_NE(spoken, nullptr) << description(*control);
            EXPECT_NE(spoken->text(QAccessible::Name), "") << description(*control);
            EXPECT_NE(spoken->role(), QAccessible::NoRole) << description(*control);
            EXPECT_NE(spoken->role(), QAccessible::Client) << description(*control);
            EXPECT_GE(control->width(), 44) << description(*control);
            EXPECT_GE(control->height(), 44) << description(*control);
        }
    });
}

/// What Tab reaches, in order, from where the keyboard is.
std::vector<QQuickItem*> tabOrder(TestApplication& application) {
    std::vector<QQuickItem*> order;
    for (;;) {
        application.press(Qt::Key_Tab);
        QQuickItem* const focused = application.window().activeFocusItem();
        if (focused == nullptr || std::ranges::find(order, focused) != order.end())
            return order;
        order.push_back(focused);
    }
}

// The choices of a group and the cells of a list are reached by the arrow keys; a list may hand the keyboard
// on.
bool isReached(const QQuickItem& control, const std::vector<QQuickItem*>& order) {
    return std::ranges::any_of(order, [&control](const QQuickItem* stop) {
        return stop == &control || (control.isFocusScope() && control.isAncestorOf(stop)) ||
               (!stop->inherits("QQuickControl") && stop->isAncestorOf(&control));
    });
}

TEST(EveryControl, IsReachedByTabWhichNeverLeavesTheScreenInFront) {
    inEverySituation([](TestApplication& application, const Situation&) {
        const std::vector<QQuickItem*> order = tabOrder(application);
        for (const QQuickItem* control : controls(application.frontItem()))
            EXPECT_TRUE(isReached(*control, order)) << description(*control);
        for (const QQuickItem* stop : order)
            EXPECT_TRUE(stop == &application.frontItem() || application.frontItem().isAncestorOf(stop))
                << description(*stop);
        EXPECT_EQ(application.rootItem().isEnabled(), &application.frontScreen() == &application.root());
    });
}

TEST(EveryControl, IsPressedByReturn) {
    for (const Situation& situation : situations()) {
        SCOPED_TRACE(situation.name);
        for (std::size_t stop = 0, count = 1; stop < count; ++stop) {
            TestApplication application;
            situation.reach(application);
            application.settle();
            std::vector<QQuickItem*> buttons = tabOrder(application);
            std::erase_if(buttons, [](QQuickItem* item) { return !item->inherits("QQuickAbstractButton"); });
            count = buttons.size();
            if (count == 0)
                break;
            QSignalSpy presses(buttons.at(stop), SIGNAL(clicked()));
            buttons.at(stop)->forceActiveFocus(Qt::TabFocusReason);
            const std::string name = description(*buttons.at(stop));
            application.press(Qt::Key_Return);
            EXPECT_EQ(presses.count(), 1) << name;
        }
    }
}

TEST(EveryScreen, FitsEveryWindowAndTextSize) {
    inEverySituation([](TestApplication& application, const Situation& situation) {
        for (const qreal textScale : {1.0, 1.5}) {
            application.appearance().setTextScale(textScale);
            application.appearance().setDark(textScale > 1);
            for (const QSize size : {QSize(360, 640), QSize(390, 844), QSize(844, 390), QSize(1280, 800)}) {
                application.resize(size);
                for (const std::string& flaw : flaws(application.window(), application.frontItem()))
                    ADD_FAILURE() << situation.name << ", " << size.width() << 'x' << size.height()
                                  << ", text " << textScale << ": " << flaw;
            }
        }
    });
}

} // namespace
} // namespace reelsmith
