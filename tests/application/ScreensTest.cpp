// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/RunLoop.h"

#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UITabBarController.h"
#include "platform/uikit/UIWindow.h"

#include <QCoreApplication>
#include <gtest/gtest.h>
#include <random>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

/// A screen that writes down what happens to it.
class Page : public UIViewController {
public:
    Page(const QString& name, QStringList& log) : m_log(log) { setTitle(name); }
    ~Page() override { m_log.append(title() + u".end"_s); }

    static std::unique_ptr<Page> card(const QString& name, QStringList& log) {
        auto page = std::make_unique<Page>(name, log);
        page->setModalPresentationStyle(UIModalPresentationStyle::OverCurrentContext);
        return page;
    }

protected:
    void viewDidLoad() override { m_log.append(title() + u".load"_s); }
    void viewWillAppear() override { m_log.append(title() + u".willAppear"_s); }
    void viewDidAppear() override { m_log.append(title() + u".didAppear"_s); }
    void viewWillDisappear() override { m_log.append(title() + u".willDisappear"_s); }
    void viewDidDisappear() override { m_log.append(title() + u".didDisappear"_s); }

private:
    QStringList& m_log;
};

class Screens : public testing::Test {
protected:
    Screens() {
        auto stack = std::make_unique<UINavigationController>(std::make_unique<Page>(u"a"_s, m_log));
        m_stack = stack.get();
        m_page = m_stack->topViewController();
        std::vector<UITabBarController::Tab> tabs;
        tabs.push_back({std::move(stack), u"convert"_s});
        tabs.push_back({std::make_unique<Page>(u"second"_s, m_log), u"settings"_s});
        auto root = std::make_unique<UITabBarController>();
        m_tabs = root.get();
        m_tabs->setTabs(std::move(tabs));
        m_window.setRootViewController(std::move(root));
        m_window.makeKeyAndVisible();
        m_log.clear();
    }

    bool settle() {
        return runLoopUntil([this] { return m_window.presentations().isIdle(); });
    }
    QStringList takeLog() { return std::exchange(m_log, {}); }
    UIViewController::Completion note(const QString& text) {
        return [this, text] { m_log.append(text); };
    }

    QStringList m_log;
    UIWindow m_window;
    UITabBarController* m_tabs;
    UINavigationController* m_stack;
    UIViewController* m_page;
};

/// Fails to load what it is asked for.
class NoFiles : public InterfaceLoader {
    Result<void> load(const QString& /*name*/) override { return failure(u"no such file"_s); }
};

} // namespace

TEST_F(Screens, AFullScreenPresentationTakesThePresentersPlaceAndACardDoesNot) {
    m_page->present(std::make_unique<Page>(u"b"_s, m_log), Animated::Yes, note(u"done"_s));
    ASSERT_TRUE(settle());
    EXPECT_EQ(takeLog(),
              u"b.load b.willAppear a.willDisappear b.didAppear a.didDisappear done"_s.split(u' '));
    m_page->dismiss(Animated::Yes, note(u"done"_s));
    ASSERT_TRUE(settle());
    EXPECT_EQ(takeLog(), u"b.willDisappear a.willAppear b.didDisappear a.didAppear done b.end"_s.split(u' '));

    m_page->present(Page::card(u"c"_s, m_log), Animated::Yes);
    ASSERT_TRUE(settle());
    m_page->presentedViewController()->dismiss(Animated::Yes);
    ASSERT_TRUE(settle());
    EXPECT_EQ(takeLog(),
              u"c.load c.willAppear c.didAppear c.willDisappear c.didDisappear c.end"_s.split(u' '));
}

TEST_F(Screens, ADismissalTakesItsTargetWithAllItPresentsAndNothingElse) {
    m_page->present(Page::card(u"b"_s, m_log), Animated::Yes);
    UIViewController* const first = m_page->presentedViewController();
    m_tabs->present(Page::card(u"c"_s, m_log), Animated::Yes);
    first->present(Page::card(u"d"_s, m_log), Animated::Yes);
    ASSERT_TRUE(settle());
    EXPECT_EQ(m_window.frontmost()->title(), u"d"_s);
    EXPECT_EQ(m_page->presentedViewController()->title(), u"c"_s);
    first->present(Page::card(u"e"_s, m_log), Animated::Yes);
    takeLog();
    first->dismiss(Animated::Yes); // its last one, which is not even there yet
    first->dismiss(Animated::Yes);
    first->dismiss(Animated::Yes, note(u"gone"_s));
    first->dismiss(Animated::Yes, note(u"none left"_s));
    ASSERT_TRUE(settle());
    ASSERT_TRUE(runLoopUntil([this] { return m_log.contains(u"none left"_s); }));
    ASSERT_EQ(m_window.presentations().screens().size(), 1U);
    EXPECT_EQ(m_window.frontmost()->title(), u"c"_s);
    EXPECT_TRUE(m_log.contains(u"e.didAppear"_s));
    EXPECT_EQ(m_log.count(u"gone"_s) + m_log.count(u"none left"_s), 2);
}

TEST_F(Screens, AnAlertsHandlerRunsOnceItHasGone) {
    auto alert =
        std::make_unique<UIAlertController>(u"Delete Video"_s, u"Sure?"_s, UIAlertController::Style::Alert);
    UIAlertController* const shown = alert.get();
    alert->addAction(u"delete"_s, UIAlertController::ActionStyle::Destructive, [this] {
        m_log.append(m_page->presentedViewController() == nullptr ? u"handler"_s : u"too early"_s);
    });
    alert->addAction(u"cancel"_s, UIAlertController::ActionStyle::Cancel, note(u"cancelled"_s));
    m_page->present(std::move(alert), Animated::Yes);
    ASSERT_TRUE(settle());
    shown->press(0);
    shown->press(1); // a double tap
    ASSERT_TRUE(settle());
    EXPECT_EQ(m_log, QStringList{u"handler"_s});
}

TEST_F(Screens, AStackPushesAndPopsInOrderAndTabsKeepTheirOwn) {
    m_stack->pushViewController(std::make_unique<Page>(u"b"_s, m_log), Animated::Yes);
    m_stack->pushViewController(std::make_unique<Page>(u"c"_s, m_log), Animated::Yes);
    ASSERT_TRUE(runLoopUntil([this] { return m_log.contains(u"c.didAppear"_s); }));
    EXPECT_EQ(m_stack->barTitle(), u"c"_s);
    takeLog();
    UIViewController* const second = m_stack->viewControllers().at(1);
    m_stack->popViewController(*second, Animated::Yes);
    m_stack->popViewController(*second, Animated::Yes);
    m_stack->popViewController(*m_page, Animated::Yes); // the root stays
    ASSERT_TRUE(runLoopUntil([this] { return m_log.contains(u"b.end"_s); }));
    EXPECT_EQ(m_log, u"c.willDisappear a.willAppear c.didDisappear a.didAppear c.end b.end"_s.split(u' '));
    takeLog();
    m_tabs->setSelectedIndex(1);
    m_tabs->setSelectedIndex(7);
    EXPECT_EQ(takeLog(),
              u"second.load second.willAppear a.willDisappear second.didAppear a.didDisappear"_s.split(u' '));
    m_stack->setRootViewController(std::make_unique<Page>(u"new"_s, m_log));
    EXPECT_EQ(takeLog(), QStringList{u"a.end"_s});
    m_tabs->setSelectedIndex(0);
    EXPECT_TRUE(m_log.contains(u"new.didAppear"_s));
}

TEST_F(Screens, AScreenFromAnArchiveOrWithoutItsInterfaceFileStopsTheApplication) {
    EXPECT_DEATH(UIViewController(NSCoder{}), "Fatal error: init\\(coder:\\) has not been implemented");
    static NoFiles loader; // the window looks back at them when it ends
    static TransitionDriver driver;
    m_window.setDriver(driver, loader);
    EXPECT_DEATH(
        {
            m_page->present(
                std::make_unique<UIAlertController>(QString(), QString(), UIAlertController::Style::Alert),
                Animated::No);
        },
        "The interface file \"UIAlertController\" cannot be loaded: no such file");
}

// Whatever is asked for in whatever order: each completion runs once, and in the end nothing is left.
TEST_F(Screens, EveryCompletionRunsOnceInAnyOrderOfEvents) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        int asked = 0;
        int run = 0;
        const auto count = [&run] { ++run; };
        for (int step = 0; step < 40; ++step) {
            const std::vector<UIViewController*> shown = m_window.presentations().screens();
            UIViewController* const one =
                shown.empty() || random() % 2 == 0 ? m_page : shown[random() % shown.size()];
            const auto choice = random() % 8;
            if (choice < 3) {
                ++asked;
                const QString name = QString::number(step);
                one->present(choice == 0 ? std::make_unique<Page>(name, m_log) : Page::card(name, m_log),
                             Animated::Yes, count);
            } else if (choice < 6) {
                ++asked;
                one->dismiss(Animated::Yes, count);
            } else if (choice == 6) {
                m_tabs->setSelectedIndex(static_cast<int>(random() % 2));
            } else {
                QCoreApplication::processEvents();
            }
        }
        while (UIViewController* left = m_page->presentedViewController()) {
            ++asked;
            left->dismiss(Animated::Yes, count);
        }
        ASSERT_TRUE(runLoopUntil([&] { return run == asked; }));
        ASSERT_TRUE(settle());
        EXPECT_TRUE(m_window.presentations().screens().empty());
        EXPECT_EQ(m_window.frontmost(), m_tabs);
        m_tabs->setSelectedIndex(0);
        EXPECT_TRUE(m_page->isVisible());
        EXPECT_FALSE(m_tabs->viewControllers().at(1)->isVisible());
        m_log.clear();
    }
}
