// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/Scenes.h"
#include "fakes/ConsoleCapture.h"
#include "fakes/InMemoryServices.h"
#include "fakes/ScriptedHTTPClient.h"

#include "app/AppDelegate.h"
#include "app/MainTabBarController.h"
#include "library/FileSystem.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UINavigationController.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace reelsmith {

struct CountingInhibitor : Inhibitor {
    explicit CountingInhibitor(int& holds) : m_holds(holds) {}
    void hold() override { ++m_holds; }
    void letGo() override { --m_holds; }
    int& m_holds;
};

/// A test with empty folders in the documents folder, a scripted worker, services in memory and a quiet
/// console.
class ApplicationTest : public testing::Test {
protected:
    ApplicationTest();

    /// Writes a file into a folder of the test's own.
    QUrl file(const QString& name, const QByteArray& contents = {}) const;

    static QUrl inOutputs(const QString& name);

    /// The names of all that is in the outputs folder, hidden files too.
    static QStringList outputs();

    static void write(const QUrl& url, const QByteArray& contents);
    static QByteArray contents(const QUrl& url);

    /// The thumbnail that the library makes or keeps of a video.
    static UIImage thumbnail(const QUrl& url);

    /// The names of the events that were logged.
    QStringList events() const;

    QTemporaryDir m_folder;
    ConsoleCapture m_console;
    InMemoryServices& m_services = InMemoryServices::fresh();
};

/// A test of the application as the user has it, but that nothing is drawn and the web is scripted.
class WholeApplicationTest : public ApplicationTest {
protected:
    WholeApplicationTest();
    /// Takes back what a test has put in place of the platform's parts.
    ~WholeApplicationTest() override;

    /// To the end of its first fetch.
    void launch();

    UIWindow& window() { return *m_delegate.window(); }
    MainTabBarController& tabs() {
        return *qobject_cast<MainTabBarController*>(window().rootViewController());
    }
    UINavigationController& stack(std::size_t tab) {
        return *qobject_cast<UINavigationController*>(tabs().viewControllers().at(tab));
    }
    bool isIdle() { return window().presentations().isIdle(); }
    bool isAtHome();

    /// Throws, which ends the test, if no such screen comes to the front.
    template<typename Screen>
    Screen& await() {
        return awaitInFront<Screen>(window());
    }

    std::shared_ptr<ScriptedHTTPClient> m_web = std::make_shared<ScriptedHTTPClient>();
    AppDelegate m_delegate{std::make_unique<UIWindow>(),
                           {m_services.remoteConfig, m_services.installations, m_services.analytics}};
};

} // namespace reelsmith
