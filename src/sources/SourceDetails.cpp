// SPDX-License-Identifier: GPL-3.0-or-later
#include "sources/SourceDetails.h"

#include "RemoteSettings/RemoteSettings.h"
#include "conversion/ConversionQuality.h"
#include "library/FileSystem.h"
#include "library/MediaTexts.h"
#include "platform/avfoundation/AVAsset.h"
#include "platform/foundation/ClockText.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/URLs.h"
#include "remote/FeatureToggles.h"

#include <QLocale>
#include <QStringList>
#include <filesystem>

namespace reelsmith {

namespace {

constexpr std::array qualities{ConversionQuality::low, ConversionQuality::medium, ConversionQuality::high};

std::optional<qint64> known(std::uintmax_t bytes, const std::error_code& error) {
    return error ? std::nullopt : std::optional(static_cast<qint64>(bytes));
}

} // namespace

QString SourceDetails::summary() const {
    QStringList parts{durationText, resolutionText, sizeBytes ? sizeText(*sizeBytes) : QString()};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(" · "));
}

void SourceDetails::load(const QUrl& file, std::function<void(const SourceDetails&)> completion) {
    DispatchQueue::global(QualityOfService::UserInitiated).async([file, completion = std::move(completion)] {
        DispatchQueue::main().async([completion, details = of(file)] { completion(details); });
    });
}

SourceDetails SourceDetails::of(const QUrl& file) {
    SourceDetails details;
    const AVAsset asset(file);
    if (const double seconds = asset.duration().seconds(); seconds > 0)
        details.durationText = clockText(static_cast<qint64>(seconds), 2);
    if (const auto tracks = asset.tracks(AVMediaType::Video); !tracks.empty()) {
        const QSizeF shown = tracks.front().preferredTransform.applied(tracks.front().naturalSize);
        details.resolutionText = reelsmith::resolutionText(shown, QLocale::system());
    }
    const bool passthroughEnabled = RemoteSettings::shared().isEnabled<FeatureToggles::PassthroughEnabled>();
    for (std::size_t i = 0; i < qualities.size(); ++i) {
        details.estimatedBytes[i] =
            asset.estimatedOutputFileLength(exportPresetName(qualities[i], passthroughEnabled));
    }
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(filePath(file), error);
    details.sizeBytes = known(size, error);
    const auto space = std::filesystem::space(filePath(FileSystem::shared().outputsFolder()), error);
    details.freeBytes = known(space.available, error);
    return details;
}

QString SourceDetails::sizeText(qint64 bytes) {
    return QLocale::system()
        .formattedDataSize(bytes, bytes < 10'000'000'000 ? 1 : 0, QLocale::DataSizeSIFormat)
        .replace(QLatin1Char(' '), QChar::Nbsp);
}

} // namespace reelsmith
