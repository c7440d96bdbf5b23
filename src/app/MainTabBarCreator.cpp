// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainTabBarCreator.h"

#include "app/MainNavigationController.h"
#include "app/MainTabBarController.h"
#include "conversion/VideoConversionViewController.h"
#include "library/ConvertedVideosViewController.h"
#include "library/VideosViewController.h"
#include "platform/foundation/Console.h"
#include "remote/ABTestManager.h"
#include "remote/Experiments.h"
#include "settings/SettingsViewController.h"

#include <optional>

namespace reelsmith {

namespace {

constexpr QLatin1StringView gridVariant = Variants::variantA;
constexpr int videosTab = 1;

// With which the videos' tab was built.
std::optional<QString>& rememberedVariant() {
    static std::optional<QString> variant;
    return variant;
}

QString currentVariant() {
    return ABTestManager::shared().variant<Experiments::newVideoLayout>();
}

std::unique_ptr<UIViewController> videosScreen(const QString& variant) {
    if (variant == gridVariant)
        return std::make_unique<VideosViewController>();
    return std::make_unique<ConvertedVideosViewController>();
}

UITabBarController::Tab tab(std::unique_ptr<UIViewController> root, const QString& title,
                            const QString& image) {
    auto stack = std::make_unique<MainNavigationController>(std::move(root));
    stack->setTitle(title);
    return {std::move(stack), image};
}

QString layoutName(const QString& variant) {
    return variant == gridVariant ? QString(gridVariant) : QString(Variants::defaultVariant);
}

} // namespace

std::unique_ptr<MainTabBarController> MainTabBarCreator::build() {
    std::vector<UITabBarController::Tab> tabs;
    tabs.push_back(tab(std::make_unique<VideoConversionViewController>(), QStringLiteral("Convert to MP4"),
                       QStringLiteral("convert")));
    const QString variant = currentVariant();
    console(QStringLiteral("Instantiated videos vc with ") + layoutName(variant));
    rememberedVariant() = currentVariant();
    tabs.push_back(
        tab(videosScreen(variant), QStringLiteral("Converted Videos"), QStringLiteral("converted")));
    tabs.push_back(tab(std::make_unique<SettingsViewController>(), QStringLiteral("Settings"),
                       QStringLiteral("settings")));

    auto controller = std::make_unique<MainTabBarController>();
    controller->setTabs(std::move(tabs));
    constexpr int prominentBlur = 5;
    const UITabBarController::TabBarAppearance appearance{prominentBlur, QStringLiteral("gray"),
                                                          QStringLiteral("gray"), 0.85};
    controller->setAppearances(appearance, appearance);
    return controller;
}

void MainTabBarCreator::swapVideosTab(MainTabBarController& tabs) {
    const QString variant = currentVariant();
    if (!rememberedVariant() || variant == *rememberedVariant())
        return;
    std::unique_ptr<UIViewController> screen = videosScreen(variant);
    console(QStringLiteral("Swapped videos VC to ") + layoutName(variant));
    if (tabs.selectedIndex() == videosTab)
        return;
    if (auto* stack = qobject_cast<UINavigationController*>(tabs.viewControllers().at(videosTab)))
        stack->setRootViewController(std::move(screen));
}

} // namespace reelsmith
