// SPDX-License-Identifier: GPL-3.0-or-later
//
// The real window on made-up surroundings, for tapping through every screen and for pictures of them:
//   reelsmith-demo [--scene NAME] [--size WIDTHxHEIGHT] [--dark] [--contrast] [--text SCALE] [--picture FILE]
// With --picture the window is saved once nothing has changed in it for a moment, and the demo ends.
#include "demo/DemoServices.h"
#include "demo/Scenes.h"
#include "fakes/ScriptedHTTPClient.h"
#include "platform/avfoundation/AVPlayer.h"
#include "platform/linux/multimedia/MultimediaPlayback.h"
#include "settings/UserSettings.h"
#include "window/Appearance.h"
#include "window/WindowApplication.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QStyleHints>
#include <QTimer>

using namespace reelsmith;

namespace {

constexpr std::chrono::milliseconds stillness{700};

QSize parsedSize(const QString& text) {
    return {text.section('x', 0, 0).toInt(), text.section('x', 1).toInt()};
}

LinuxPlatform platform(const QCommandLineParser& options) {
    LinuxPlatform made;
    made.appearance = std::make_unique<DemoAppearance>(
        DesktopAppearance::Settings{.isDark = options.isSet("dark"),
                                    .hasHighContrast = options.isSet("contrast"),
                                    .textScale = options.value("text").toDouble()});
    made.services.fileSharing = std::make_unique<DemoFileSharing>();
    return made;
}

void saveWhenStill(QQuickWindow& window, const QString& file) {
    auto* const timer = new QTimer(&window);
    timer->setSingleShot(true);
    QObject::connect(&window, &QQuickWindow::frameSwapped, timer, [timer] { timer->start(stillness); });
    QObject::connect(timer, &QTimer::timeout, &window,
                     [&window, file] { QCoreApplication::exit(window.grabWindow().save(file) ? 0 : 1); });
    timer->start(stillness);
}

} // namespace

int main(int argc, char** argv) {
    MultimediaPlayback::chooseEngine();
    QGuiApplication application(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    options.addOptions({{"scene", "what to show", "NAME", "convert"},
                        {"size", "of the window", "SIZE", "390x844"},
                        {"dark", "dark colours"},
                        {"contrast", "colours of high contrast"},
                        {"text", "scale of the text", "SCALE", "1"},
                        {"picture", "save the window and end", "FILE"}});
    options.process(application);
    const auto scene = scenes().value(options.value("scene"));
    if (!scene)
        qFatal("There is no such scene; there are: %s", qPrintable(scenes().keys().join(' ')));

    AVPlayer::setPlaybackFactory([] { return std::make_unique<MultimediaPlayback>(); });
    UserSettings::shared().setDidShowOnboarding(true);
    WindowApplication demo(platform(options), std::make_shared<ScriptedHTTPClient>());
    demo.quickWindow().resize(parsedSize(options.value("size")));
    demo.launch({});
    if (options.isSet("picture")) {
        // A caret that blinks never lets the window rest.
        QGuiApplication::styleHints()->setCursorFlashTime(0);
        demo.appearance().setDurationsScale(0);
    }
    scene(demo);
    if (options.isSet("picture"))
        saveWhenStill(demo.quickWindow(), options.value("picture"));
    return QGuiApplication::exec();
}
