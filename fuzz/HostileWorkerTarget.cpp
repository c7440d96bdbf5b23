// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the application does with the answers of a worker that somebody has taken over.
#include "Target.h"
#include "library/ConvertedVideo.h"
#include "library/FileSystem.h"
#include "platform/avfoundation/AVAssetImageGenerator.h"
#include "platform/avfoundation/ExportRun.h"
#include "platform/avfoundation/WorkerProcess.h"
#include "platform/foundation/URLs.h"
#include "sources/SourceDetails.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <fcntl.h>
#include <filesystem>
#include <iterator>

using namespace reelsmith;

namespace {

struct Surroundings {
    Surroundings() {
        qputenv("HOME", home.path().toUtf8());
        WorkerProcess::setProgram(HOSTILE_WORKER);
        FileSystem::shared().createFolders();
        outputs = filePath(FileSystem::shared().outputsFolder());
        source = fileUrl(home.filePath(QStringLiteral("source")).toStdString());
    }

    const QTemporaryDir home;
    std::filesystem::path outputs;
    QUrl source;
};

void look(const QUrl& source) {
    const SourceDetails details = SourceDetails::of(source);
    fuzz::require(details.summary().size() < 200, "what is said of a video is short");
    const ConvertedVideo video(source);
    fuzz::require(video.durationText().size() < 30, "a duration has a text");
    fuzz::require(video.resolutionText().value_or(QString()).size() < 60, "a resolution has a text");

    AVAssetImageGenerator generator{AVAsset(source)};
    generator.appliesPreferredTrackTransform = true;
    generator.maximumSize = QSize(50, 50);
    const auto picture = generator.copyCGImage({2, 30});
    fuzz::require(!picture || picture->pixels.size() == qsizetype{4} * picture->width * picture->height,
                  "a picture has the bytes that its size takes");
    fuzz::require(!picture || (picture->width <= 50 && picture->height <= 50),
                  "a picture is within its bounds");
}

void countDescriptors() {
    const std::filesystem::directory_iterator open("/proc/self/fd");
    fuzz::require(std::distance(begin(open), end(open)) < 100, "what a worker sends is closed");
}

void exportOnce(const Surroundings& surroundings) {
    const auto result = surroundings.outputs / "result.mp4";
    double last = 0;
    const auto done =
        ExportRun(surroundings.source, fileUrl(result), media::Preset::Low).run([&last](double fraction) {
            fuzz::require(fraction >= last && fraction <= 1, "progress grows up to 1");
            last = fraction;
        });
    for (const auto& entry : std::filesystem::directory_iterator(surroundings.outputs))
        fuzz::require(done && entry.path() == result, "an export leaves its result, or nothing");
    fuzz::require(!done || std::filesystem::remove(result), "an export leaves its result");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Surroundings surroundings;
    static int count = 0;
    // Never destroyed: at the end of the process what it would tell is gone already.
    static const auto* const application = new QCoreApplication(count, nullptr);
    Q_UNUSED(application)
    const mediaworker::Descriptor source(
        ::open(filePath(surroundings.source).c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600));
    fuzz::require(::write(source.number(), data, size) == static_cast<ssize_t>(size),
                  "the source can be written");
    look(surroundings.source);
    exportOnce(surroundings);
    countDescriptors();
    return 0;
}
