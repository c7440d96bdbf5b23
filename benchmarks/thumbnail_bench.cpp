// SPDX-License-Identifier: GPL-3.0-or-later
// thumbnail_bench FILE COUNT: asks for the first picture of FILE, COUNT times, all of one worker.
#include "platform/avfoundation/AVAssetImageGenerator.h"

#include <QCoreApplication>
#include <QStringList>
#include <QUrl>
#include <cstdio>

namespace {

constexpr int sideInPixels = 500;

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return 2;
    reelsmith::AVAssetImageGenerator generator(reelsmith::AVAsset(QUrl::fromLocalFile(arguments[1])));
    generator.appliesPreferredTrackTransform = true;
    generator.maximumSize = {sideInPixels, sideInPixels};
    for (int count = arguments[2].toInt(); count > 0; --count) {
        if (const auto image = generator.copyCGImage({0, 1}); !image) {
            std::fputs(qPrintable(image.error().localizedDescription + QLatin1Char('\n')), stderr);
            return 1;
        }
    }
    return 0;
}
