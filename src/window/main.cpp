// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/AVPlayer.h"
#include "platform/foundation/URLs.h"
#include "platform/linux/SingleInstance.h"
#include "platform/linux/multimedia/MultimediaPlayback.h"
#include "platform/linux/multimedia/SoundServer.h"
#include "platform/linux/network/NetworkHTTPClient.h"
#include "platform/linux/network/NetworkServices.h"
#include "window/WindowApplication.h"

#include <QGuiApplication>
#include <cstdio>

namespace reelsmith {

namespace {

constexpr int exitNoDisplay = 2;

bool hasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

QList<QUrl> urls(int argc, char** argv) {
    QList<QUrl> files;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        // A file's own name may hold a colon too.
        files.append(word.starts_with("file:") ? QUrl(QString::fromStdString(word), QUrl::StrictMode)
                                               : fileUrl(word));
    }
    return files;
}

int run(int argc, char** argv) {
    if (!hasDisplay()) {
        std::fputs(
            "reelsmith: There is no display to open the window on. Start it from a desktop session, or use\n"
            "\"reelsmith convert FILE\", which needs none; \"reelsmith --help\" tells more.\n",
            stderr);
        return exitNoDisplay;
    }
    MultimediaPlayback::chooseEngine();
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationVersion(QStringLiteral(REELSMITH_VERSION));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Reelsmith"));
    QGuiApplication::setDesktopFileName(WindowApplication::id);
    // A second start must not take a single step of the launch: it would empty the downloads of the first.
    SingleInstance instance(QDBusConnection::sessionBus(), WindowApplication::id);
    const QList<QUrl> files = urls(argc, argv);
    if (instance.claim(files) == SingleInstance::Role::Forwarded)
        return 0;
    AVPlayer::setPlaybackFactory([] { return std::make_unique<MultimediaPlayback>(); });
    AVAudioSession::sharedInstance().setServer(std::make_unique<SoundServer>());
    const NetworkServices services;
    WindowApplication reelsmith(LinuxPlatform(WindowApplication::id), std::make_shared<NetworkHTTPClient>(),
                                services.backends());
    QObject::connect(&instance, &SingleInstance::activated, &reelsmith, &WindowApplication::activate);
    QObject::connect(&instance, &SingleInstance::opened, &reelsmith,
                     [&reelsmith](const QList<QUrl>& handedOver) {
                         reelsmith.activate();
                         reelsmith.open(handedOver);
                     });
    reelsmith.launch(files);
    return QGuiApplication::exec();
}

} // namespace

} // namespace reelsmith

int main(int argc, char** argv) {
    return reelsmith::run(argc, argv);
}
