// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/Services.h"
#include "platform/uikit/RotationRestricting.h"
#include "platform/uikit/UIApplicationDelegate.h"
#include "platform/uikit/UIWindow.h"
#include "settings/OnboardingDelegate.h"

#include <QObject>
#include <QUrl>
#include <memory>

namespace reelsmith {

/// The application's entry: what happens at launch, and with files from other applications. Main thread.
class AppDelegate : public QObject,
                    public UIApplicationDelegate,
                    public RotationRestricting,
                    public OnboardingDelegate {
    Q_OBJECT

public:
    /// `window` may be null: then nothing is shown. `backends`: what the launch configures the services with.
    AppDelegate(std::unique_ptr<UIWindow> window, Services::Backends backends);
    ~AppDelegate() override;

    UIWindow* window() const { return m_window.get(); }

    bool restrictRotation() const { return m_restrictRotation; }
    void setRestrictRotation(bool restricts) override { m_restrictRotation = restricts; }
    const QString& memento() const { return m_memento; }

    bool didFinishLaunchingWithOptions() override;
    UIInterfaceOrientationMask supportedInterfaceOrientations() const override;
    bool open(const QUrl& url) override;

    void onboardingDidFinish() override;

private:
    std::unique_ptr<UIViewController> makeRoot();
    void fetchRemoteSettings();
    void remoteSettingsFetched();

    std::unique_ptr<UIWindow> m_window;
    const Services::Backends m_backends;
    bool m_restrictRotation = true;
    const QString m_memento =
        QStringLiteral("PLEASE UNIVERSE, LET THIS APP HELP AS MUCH PEOPLE AS POSSIBLE IN THIS BIG WORLD!");
};

} // namespace reelsmith
