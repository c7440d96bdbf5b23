// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakes/RunLoop.h"

#include "platform/screens/PlatformServices.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIViewController.h"
#include "platform/uikit/UIWindow.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <utility>

namespace reelsmith {

/// A desktop service whose user answers when told to.
template<typename Base, typename... Answer>
class AnsweredService : public Base {
public:
    bool isAsked() const { return m_completion != nullptr; }

    void answer(Answer... values) {
        if (const auto completion = std::exchange(m_completion, nullptr))
            completion(values...);
    }

protected:
    void ask(std::function<void(Answer...)> completion) { m_completion = std::move(completion); }

private:
    std::function<void(Answer...)> m_completion;
};

class ChooserTwin : public AnsweredService<DocumentChooser, DocumentChooser::Answer, QUrl> {
public:
    bool isAvailable() const override { return m_isAvailable; }
    void choose(const QString&, const QList<Kind>& kinds, Completion completion) override {
        m_kinds = kinds;
        ask(std::move(completion));
    }
    void cancel() override { answer(Answer::Cancelled, {}); }

    bool m_isAvailable = true;
    QList<Kind> m_kinds;
};

class SharingTwin : public AnsweredService<FileSharing, FileSharing::Outcome, QString> {
public:
    QList<Action> availableActions() const override {
        return {Action::OpenWith, Action::SaveCopy, Action::CopyFile};
    }
    void perform(Action action, const QUrl&, Completion completion) override {
        m_actions.append(action);
        ask(std::move(completion));
    }
    void cancel() override { answer(Outcome::Cancelled, {}); }

    QList<Action> m_actions;
};

class StoreTwin : public StorePage {
public:
    bool isAvailable() const override { return m_isAvailable; }
    void open(Completion completion) override {
        ++m_openings;
        completion(true);
    }

    bool m_isAvailable = true;
    int m_openings = 0;
};

/// A test with a window, and a desktop of which it is the user.
class ScreensTest : public testing::Test {
protected:
    ScreensTest() {
        PlatformServices services;
        services.documentChooser.reset(m_chooser = new ChooserTwin);
        services.fileSharing.reset(m_sharing = new SharingTwin);
        services.storePage.reset(m_store = new StoreTwin);
        PlatformServices::install(std::move(services));
        m_window.setRootViewController(std::make_unique<UIViewController>());
        m_window.makeKeyAndVisible();
        UIApplication::shared().setKeyWindow(&m_window);
    }

    UIViewController& root() { return *m_window.rootViewController(); }

    template<typename Screen>
    Screen& present(std::unique_ptr<Screen> screen) {
        Screen& shown = *screen;
        root().present(std::move(screen), Animated::Yes);
        settle();
        return shown;
    }

    /// Until all changes of screens are over.
    void settle() {
        EXPECT_TRUE(runLoopUntil([this] { return m_window.presentations().isIdle(); }));
    }
    bool isNothingPresented() { return m_window.presentations().screens().empty(); }

    QTemporaryDir m_folder;
    UIWindow m_window;
    ChooserTwin* m_chooser;
    SharingTwin* m_sharing;
    StoreTwin* m_store;
};

} // namespace reelsmith
