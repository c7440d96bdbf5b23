// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AppDelegate.h"

#include "RemoteSettings/RemoteSettings.h"
#include "app/MainTabBarController.h"
#include "app/MainTabBarCreator.h"
#include "library/FileSystem.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/uikit/KeyboardManager.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIViewController.h"
#include "remote/ABTestManager.h"
#include "settings/OnboardingViewControllerV2.h"
#include "settings/UserSettings.h"
#include "sources/AppFileOpener.h"

namespace reelsmith {

AppDelegate::AppDelegate(std::unique_ptr<UIWindow> window, Services::Backends backends)
    : m_window(std::move(window)), m_backends(std::move(backends)) {}

AppDelegate::~AppDelegate() = default;

bool AppDelegate::didFinishLaunchingWithOptions() {
    FileSystem::shared().createFolders();
    FileSystem::shared().removeLeftovers();
    Services::configure(m_backends);
    fetchRemoteSettings();
    UIApplication::shared().setIdleTimerDisabled(true);
    KeyboardManager::shared().setEnabled(true);
    std::unique_ptr<UIViewController> root = makeRoot();
    if (m_window) {
        m_window->setRootViewController(std::move(root));
        m_window->makeKeyAndVisible();
    }
    FileSystem::shared().clearDownloads();
    console(m_memento);
    return true;
}

std::unique_ptr<UIViewController> AppDelegate::makeRoot() {
    if (UserSettings::shared().didShowOnboarding())
        return MainTabBarCreator::build();
    auto onboarding = std::make_unique<OnboardingViewControllerV2>();
    // The screen need not keep what owns its window.
    onboarding->setDelegate(std::shared_ptr<OnboardingDelegate>(std::shared_ptr<void>(), this));
    return onboarding;
}

// The screen must not go while it tells.
void AppDelegate::onboardingDidFinish() {
    DispatchQueue::main().async([self = QPointer(this)] {
        if (self && self->m_window)
            self->m_window->setRootViewController(MainTabBarCreator::build());
    });
}

void AppDelegate::fetchRemoteSettings() {
    ABTestManager::shared().registerExperiments();
    RemoteSettings::shared().fetch([self = QPointer(this)] {
        console(QStringLiteral("Fetched remote settings"));
        DispatchQueue::main().async([self] {
            if (self)
                self->remoteSettingsFetched();
        });
    });
}

void AppDelegate::remoteSettingsFetched() {
    auto* tabs = qobject_cast<MainTabBarController*>(m_window ? m_window->rootViewController() : nullptr);
    if (tabs != nullptr)
        MainTabBarCreator::swapVideosTab(*tabs);
}

UIInterfaceOrientationMask AppDelegate::supportedInterfaceOrientations() const {
    return m_restrictRotation ? UIInterfaceOrientationMask::Portrait : UIInterfaceOrientationMask::All;
}

bool AppDelegate::open(const QUrl& url) {
    return AppFileOpener::accept(url);
}

} // namespace reelsmith
