// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/AVAsset.h"

#include "platform/avfoundation/EnginePreset.h"
#include "platform/avfoundation/MediaService.h"
#include "platform/avfoundation/SourceFile.h"

#include <mutex>

namespace reelsmith {

namespace {

using mediaworker::AssetProperties;

constexpr std::chrono::seconds propertyLimit{2};

} // namespace

QSizeF CGAffineTransform::applied(const QSizeF& size) const {
    return {a * size.width() + c * size.height(), b * size.width() + d * size.height()};
}

/// One file's properties, asked for once.
class AVAsset::Properties {
public:
    explicit Properties(const QUrl& url) : m_url(url) {}
    ~Properties() {
        if (m_request)
            MediaService::properties().withdraw(m_request);
    }
    Properties(const Properties&) = delete;
    Properties& operator=(const Properties&) = delete;

    const QUrl& url() const { return m_url; }

    AssetProperties get() {
        const std::lock_guard lock(m_mutex);
        if (!m_known && !m_request)
            ask();
        if (!m_known && m_request->isAnsweredBy(m_deadline)) {
            const MediaRequest::Answer& answer = m_request->answer();
            m_known = answer ? std::get<AssetProperties>(*answer) : AssetProperties{};
            m_request = nullptr;
        }
        return m_known.value_or(AssetProperties{});
    }

private:
    void ask() {
        m_deadline = std::chrono::steady_clock::now() + propertyLimit;
        auto source = openSourceFile(m_url);
        if (!source) {
            m_known = AssetProperties{};
            return;
        }
        m_request = std::make_shared<MediaRequest>(mediaworker::ProbeRequest{}, std::move(*source));
        MediaService::properties().ask(m_request);
    }

    const QUrl m_url;
    std::mutex m_mutex;
    std::shared_ptr<MediaRequest> m_request;
    std::chrono::steady_clock::time_point m_deadline;
    std::optional<AssetProperties> m_known;
};

AVAsset::AVAsset(const QUrl& url) : m_properties(std::make_shared<Properties>(url)) {}

const QUrl& AVAsset::url() const {
    return m_properties->url();
}

bool AVAsset::isPlayable() const {
    return m_properties->get().isPlayable;
}

bool AVAsset::isExportable() const {
    return m_properties->get().isExportable;
}

CMTime AVAsset::duration() const {
    const mediaworker::Time duration = m_properties->get().duration;
    return {duration.value, duration.timescale};
}

std::vector<AVAssetTrack> AVAsset::tracks(AVMediaType) const {
    const auto track = m_properties->get().videoTrack;
    if (!track)
        return {};
    const auto& [a, b, c, d] = track->transform;
    return {{{track->naturalWidth, track->naturalHeight}, {a, b, c, d}}};
}

std::optional<qint64> AVAsset::estimatedOutputFileLength(const QString& presetName) const {
    const std::optional<media::Preset> preset = enginePreset(presetName);
    const std::int64_t bytes =
        preset ? m_properties->get().estimatedBytes.at(static_cast<std::size_t>(*preset)) : 0;
    return bytes > 0 ? std::optional<qint64>(bytes) : std::nullopt;
}

} // namespace reelsmith
