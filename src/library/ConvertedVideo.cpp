// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/ConvertedVideo.h"

#include "library/MediaTexts.h"
#include "library/ThumbnailCache.h"
#include "library/ThumbnailQueue.h"
#include "platform/avfoundation/AVAssetImageGenerator.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/URLs.h"

#include <QUuid>
#include <algorithm>

namespace reelsmith {

namespace {

constexpr QSize maximumThumbnailSize{500, 500};
constexpr std::int64_t thumbnailTicks = 2;

UIImage makeThumbnail(const QUrl& url) {
    const AVAsset asset(url);
    AVAssetImageGenerator generator(asset);
    generator.appliesPreferredTrackTransform = true;
    generator.maximumSize = maximumThumbnailSize;
    const CMTime duration = asset.duration();
    const auto image = generator.copyCGImage({std::min(duration.value, thumbnailTicks), duration.timescale});
    if (!image) {
        console(image.error().localizedDescription);
        return {};
    }
    return UIImage(*image);
}

UIImage cachedThumbnail(const QUrl& url) {
    ThumbnailCache& cache = ThumbnailCache::shared();
    // Another tile may have had it made meanwhile.
    if (const std::optional<UIImage> kept = cache.image(url))
        return *kept;
    const ThumbnailCache::Moment begin = cache.now();
    UIImage made = makeThumbnail(url);
    if (!made.isEmpty())
        cache.insert(url, made, begin);
    return made;
}

} // namespace

QUrl ConvertedVideo::url() const {
    return m_path.empty() ? m_url : fileUrlOfBytes(m_path);
}

QString ConvertedVideo::name() const {
    const QString last = lastPathComponent(url());
    return last.isEmpty() ? QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper() : last;
}

void ConvertedVideo::thumbnail(std::function<void(const UIImage&)> completion,
                               std::stop_token unwanted) const {
    const QUrl file = url();
    if (const std::optional<UIImage> kept = ThumbnailCache::shared().image(file)) {
        DispatchQueue::main().async(
            [image = *kept, completion = std::move(completion)] { completion(image); });
        return;
    }
    ThumbnailQueue::shared().add(
        [file, completion = std::move(completion)] {
            DispatchQueue::main().async([image = cachedThumbnail(file), completion] { completion(image); });
        },
        std::move(unwanted));
}

QString ConvertedVideo::durationText() const {
    return reelsmith::durationText(AVAsset(url()).duration().seconds());
}

std::optional<QString> ConvertedVideo::resolutionText() const {
    const std::vector<AVAssetTrack> tracks = AVAsset(url()).tracks(AVMediaType::Video);
    if (tracks.empty())
        return std::nullopt;
    const AVAssetTrack& track = tracks.front();
    return reelsmith::resolutionText(track.preferredTransform.applied(track.naturalSize), QLocale::system());
}

} // namespace reelsmith
