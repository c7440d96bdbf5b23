// SPDX-License-Identifier: GPL-3.0-or-later
#include "Contrast.h"
#include "Layout.h"
#include "TestApplication.h"

#include "fakes/ScriptedPlayback.h"
#include "platform/avfoundation/AVPlayer.h"

#include <QAccessible>
#include <QDir>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QVideoFrame>
#include <QVideoSink>
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

namespace reelsmith {
namespace {

/// Plays the brightest video.
class WhitePlayback : public ScriptedPlayback {
public:
    WhitePlayback() {
        QVideoFrame frame(QVideoFrameFormat({39, 84}, QVideoFrameFormat::Format_BGRX8888));
        frame.map(QVideoFrame::WriteOnly);
        std::fill_n(frame.bits(0), frame.mappedBytes(0), uchar{0xff});
        frame.unmap();
        m_sink.setVideoFrame(frame);
    }
    QObject* output() override { return &m_sink; }

private:
    QVideoSink m_sink;
};

/// The application with videos of long names, at one of its screens.
class ApplicationAt : public TestApplication {
public:
    explicit ApplicationAt(void (*show)(WindowApplication&)) {
        AVPlayer::setPlaybackFactory([] { return std::make_unique<WhitePlayback>(); });
        for (const char* video : {".mp4", " again.mp4"}) {
            homeFile("Videos/" + longName + video, "thumbnail picture 64 36\n");
            homeFile("Documents/Reelsmith/outputs/" + longName + video);
        }
        show(application());
        settle();
    }
    ~ApplicationAt() {
        AVPlayer::setPlaybackFactory([] { return std::make_unique<VideoPlayback>(); });
    }
};

/// Runs `check` at each screen, and says at which it failed.
void onEveryScreen(const std::function<void(TestApplication&)>& check) {
    for (const auto& [name, show] : scenes().asKeyValueRange()) {
        SCOPED_TRACE(name.toStdString());
        ApplicationAt application(show);
        check(application);
    }
}

// A new interface file belongs into a scene.
TEST(EveryScreen, IsSeenInSomeScene) {
    QStringList unseen = QDir(":/qt/qml/Reelsmith/Screens").entryList({"*.qml"});
    ASSERT_FALSE(unseen.isEmpty());
    onEveryScreen([&unseen](TestApplication& application) {
        for (const QQuickItem* item : visibleItems(application.frontItem())) {
            if (const QQmlContext* context = qmlContext(item))
                unseen.removeOne(context->baseUrl().fileName());
        }
    });
    EXPECT_EQ(unseen, QStringList());
}

TEST(EveryScreen, GoesBackByEscapeAndItsItemBeforeItself) {
    onEveryScreen([](TestApplication& application) {
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

/// By assistive tools: by an action, or by keys where it has the keyboard.
bool canBeUsed(QAccessibleInterface& control) {
    const QStringList actions = control.actionInterface()->actionNames();
    return actions.contains(QAccessibleActionInterface::pressAction()) ||
           actions.contains(QAccessibleActionInterface::increaseAction()) ||
           QList{QAccessible::EditableText, QAccessible::List, QAccessible::Document, QAccessible::Grouping}
               .contains(control.role());
}

TEST(EveryControl, HasANameARoleAndAFingertipsRoom) {
    onEveryScreen([](TestApplication& application) {
        for (QQuickItem* control : controls(application.frontItem())) {
            QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(control);
            ASSERT_NE(spoken, nullptr) << description(*control);
            EXPECT_NE(spoken->text(QAccessible::Name), "") << description(*control);
            EXPECT_NE(spoken->role(), QAccessible::NoRole) << description(*control);
            EXPECT_NE(spoken->role(), QAccessible::Client) << description(*control);
            EXPECT_TRUE(canBeUsed(*spoken)) << description(*control);
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
    onEveryScreen([](TestApplication& application) {
        const std::vector<QQuickItem*> order = tabOrder(application);
        for (const QQuickItem* control : controls(application.frontItem()))
            EXPECT_TRUE(isReached(*control, order)) << description(*control);
        for (const QQuickItem* stop : order)
            EXPECT_TRUE(stop == &application.frontItem() || application.frontItem().isAncestorOf(stop))
                << description(*stop);
        EXPECT_EQ(application.rootItem().isEnabled(), &application.frontScreen() == &application.root());
    });
}

/// As a tool for the disabled does.
void act(QQuickItem& item) {
    auto& actions = *QAccessible::queryAccessibleInterface(&item)->actionInterface();
    const QString toggle = QAccessibleActionInterface::toggleAction();
    const bool canToggle = actions.actionNames().contains(toggle);
    actions.doAction(canToggle ? toggle : QAccessibleActionInterface::pressAction());
}

TEST(EveryControl, IsPressedByReturnAndByAssistiveTools) {
    for (const auto& [name, show] : scenes().asKeyValueRange()) {
        SCOPED_TRACE(name.toStdString());
        for (std::size_t way = 0, count = 1; way < 2 * count; ++way) {
            const std::size_t stop = way / 2;
            ApplicationAt application(show);
            std::vector<QQuickItem*> buttons = tabOrder(application);
            std::erase_if(buttons, [](QQuickItem* item) { return !item->inherits("QQuickAbstractButton"); });
            count = buttons.size();
            if (count == 0)
                break;
            QSignalSpy presses(buttons.at(stop), SIGNAL(clicked()));
            buttons.at(stop)->forceActiveFocus(Qt::TabFocusReason);
            const std::string button = description(*buttons.at(stop));
            if (way % 2 == 0)
                application.press(Qt::Key_Return);
            else
                act(*buttons.at(stop));
            EXPECT_EQ(presses.count(), 1) << button << (way % 2 == 0 ? " by Return" : " by a tool");
        }
    }
}

TEST(EveryScreen, IsReadableInAllColours) {
    const auto isVideo = [](const QQuickItem* item) { return item->inherits("reelsmith::PlayerLayerItem"); };
    onEveryScreen([&isVideo](TestApplication& application) {
        const bool hasVideo = std::ranges::any_of(visibleItems(application.frontItem()), isVideo);
        const auto isShown = [&] {
            return application.window().grabWindow().pixelColor(20, 300) == Qt::white;
        };
        ASSERT_TRUE(!hasVideo || runLoopUntil(isShown));
        for (const auto& [isDark, isHigh] :
             {std::pair(false, false), {true, false}, {false, true}, {true, true}}) {
            application.appearance().setDark(isDark);
            application.appearance().setHighContrast(isHigh);
            for (const std::string& mark : faintMarks(application.window(), application.frontItem(), isHigh))
                ADD_FAILURE() << (isDark ? "dark" : "light") << (isHigh ? ", high contrast: " : ": ") << mark;
        }
    });
}

TEST(EveryScreen, FitsEveryWindowAndTextSize) {
    onEveryScreen([](TestApplication& application) {
        for (const qreal textScale : {1.0, 1.5}) {
            application.appearance().setTextScale(textScale);
            application.appearance().setDark(textScale > 1);
            for (const QSize size : {QSize(360, 640), QSize(390, 844), QSize(844, 390), QSize(1280, 800)}) {
                application.resize(size);
                for (const std::string& flaw : flaws(application.window(), application.frontItem()))
                    ADD_FAILURE() << size.width() << 'x' << size.height() << ", text " << textScale << ": "
                                  << flaw;
            }
        }
    });
}

} // namespace
} // namespace reelsmith
