// SPDX-License-Identifier: GPL-3.0-or-later
// What one process that is already started asks of the media service:
//   media_bench picture COUNT FILE        the first picture, COUNT times
//   media_bench properties COUNT FILE…    duration and resolution of the first COUNT files
//   media_bench passthrough COUNT FILE    an export that copies, COUNT times
//   media_bench cancel COUNT FILE         exports, each cancelled a little later than the one before
// The last prints seconds: when the first export told of progress, then how long each cancel took.
#include "platform/avfoundation/AVAssetExportSession.h"
#include "platform/avfoundation/AVAssetImageGenerator.h"
#include "platform/foundation/DocumentsFolder.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/URLs.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStringList>
#include <QThread>
#include <cstdio>

using namespace reelsmith;

namespace {

constexpr int sideInPixels = 500;
constexpr std::chrono::microseconds look{500};

[[noreturn]] void fail(const QString& why) {
    std::fputs(qPrintable(why + QLatin1Char('\n')), stderr);
    std::exit(1);
}

double seconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

void takePictures(const QString& file, int count) {
    AVAssetImageGenerator generator(AVAsset(fileUrl(file.toStdString())));
    generator.appliesPreferredTrackTransform = true;
    generator.maximumSize = {sideInPixels, sideInPixels};
    for (; count > 0; --count) {
        if (const auto image = generator.copyCGImage({0, 1}); !image)
            fail(image.error().localizedDescription);
    }
}

void readProperties(const QStringList& files) {
    for (const QString& file : files) {
        const AVAsset asset(fileUrl(file.toStdString()));
        if (asset.duration().seconds() <= 0 || asset.tracks(AVMediaType::Video).empty())
            fail(QStringLiteral("Nothing is known of ") + file);
    }
}

std::shared_ptr<AVAssetExportSession> startExport(const QString& file, QLatin1StringView preset) {
    static_cast<void>(FileManager::defaultManager().createDirectory(documentsFolder()));
    auto session = AVAssetExportSession::initWithAsset(AVAsset(fileUrl(file.toStdString())), preset);
    session->setOutputURL(appendingPathComponent(documentsFolder(), QStringLiteral("result.mp4")));
    session->setOutputFileType(AVFileType::MPEG4);
    session->exportAsynchronously([] {});
    return session;
}

// Gives how long the export took.
double finish(AVAssetExportSession& session) {
    QElapsedTimer timer;
    timer.start();
    session.waitUntilEnded();
    if (session.status() != AVAssetExportSessionStatus::Completed)
        fail(session.error() ? session.error()->localizedDescription
                             : QStringLiteral("The export was cancelled"));
    return seconds(timer);
}

double firstProgress(const AVAssetExportSession& session) {
    QElapsedTimer timer;
    timer.start();
    while (session.progress() == 0 && session.status() < AVAssetExportSessionStatus::Completed)
        QThread::usleep(static_cast<unsigned long>(look.count()));
    return seconds(timer);
}

double cancelAfter(double moment, const QString& file, QLatin1StringView preset) {
    const auto session = startExport(file, preset);
    QThread::usleep(static_cast<unsigned long>(moment * 1e6));
    QElapsedTimer timer;
    timer.start();
    session->cancelExport();
    session->waitUntilEnded();
    return seconds(timer);
}

void cancelExports(const QString& file, int count) {
    const auto whole = startExport(file, AVAssetExportPresetMediumQuality);
    const double first = firstProgress(*whole);
    const double length = first + finish(*whole);
    std::printf("%.4f\n", first);
    for (int number = 0; number < count; ++number)
        std::printf("%.4f\n", cancelAfter(length * number / count, file, AVAssetExportPresetMediumQuality));
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 4)
        return 2;
    const QString& job = arguments[1];
    const int count = arguments[2].toInt();
    const QString& file = arguments[3];
    if (job == QLatin1String("properties")) {
        readProperties(arguments.mid(3, count));
    } else if (job == QLatin1String("picture")) {
        takePictures(file, count);
    } else if (job == QLatin1String("passthrough")) {
        for (int number = 0; number < count; ++number)
            finish(*startExport(file, AVAssetExportPresetPassthrough));
    } else if (job == QLatin1String("cancel")) {
        cancelExports(file, count);
    } else {
        return 2;
    }
    return 0;
}
