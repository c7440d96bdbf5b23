// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Exporter.h"

#include "media/AudioTranscode.h"
#include "media/ExportContext.h"
#include "media/ExportInput.h"
#include "media/PacketClock.h"
#include "media/ResultCheck.h"
#include "media/TextConversion.h"
#include "media/TrackCopy.h"
#include "media/VideoTranscode.h"

#include <map>
#include <memory>
#include <utility>

namespace reelsmith::media {

namespace {

/// The progress of having opened everything: the first large picture can take a second.
constexpr double begun = 1e-4;

/// One export, from the opened source to the finished file.
class Exporter {
public:
    Exporter(ExportInput input, int output, std::function<void(double)> progress)
        : m_input(std::move(input)),
          m_source(*m_input.source),
          m_info(m_input.info),
          m_plan(m_input.plan),
          m_output(output),
          m_context(output, std::move(progress)) {}

    Result<std::string> run();

private:
    Result<void> makeSinks();
    Result<void> makeVideoSink();
    void makeAudioSink(const AudioPlan& plan);
    void makeTextSink(const TextPlan& plan);
    void annotate();
    void readAll();

    const Track& trackOf(int index) const { return m_info.tracks[static_cast<std::size_t>(index)]; }

    ExportInput m_input;
    Source& m_source;
    const MediaInfo& m_info;
    const ExportPlan& m_plan;
    int m_output;
    int m_videoTrack = 0;
    ExportContext m_context;
    std::map<int, std::unique_ptr<TrackSink>> m_sinks; ///< by source track
};

Result<std::string> Exporter::run() {
    annotate();
    if (auto made = makeSinks(); !made)
        return tl::unexpected(made.error());
    m_context.report(begun);
    readAll();
    for (auto& [track, sink] : m_sinks)
        sink->end();
    for (auto& [track, sink] : m_sinks)
        sink->wait();
    if (const auto error = m_context.latch.error())
        return tl::unexpected(*error);
    const auto report = [this](double fraction) { m_context.report(fraction); };
    if (auto finished = m_context.writer.finish(report); !finished)
        return tl::unexpected(finished.error());
    if (auto checked = checkResult(m_output, m_context.writer.packetCount(m_videoTrack)); !checked)
        return tl::unexpected(checked.error());
    return m_context.warnings();
}

Result<void> Exporter::makeSinks() {
    if (m_source.tellsPositionsOnly())
        m_context.writer.takePacketsFrom(m_source.descriptor());
    else if (m_plan.video.treatment == Treatment::Copy && m_info.durationSeconds() > 0)
        m_context.writer.leaveRoomFor(estimatePackets(m_info, m_plan));
    if (auto made = makeVideoSink(); !made)
        return made;
    for (const AudioPlan& sound : m_plan.sounds)
        makeAudioSink(sound);
    for (const TextPlan& text : m_plan.texts)
        makeTextSink(text);
    for (unsigned i = 0; i < m_source.context()->nb_streams; ++i) {
        if (!m_sinks.count(static_cast<int>(i)))
            m_source.context()->streams[i]->discard = AVDISCARD_ALL;
    }
    return m_context.writer.sealTracks();
}

Result<void> Exporter::makeVideoSink() {
    if (m_plan.video.treatment == Treatment::Copy) {
        auto copy = TrackCopy::make(m_source, trackOf(m_plan.video.track), m_plan.zeroSeconds, m_context);
        if (!copy)
            return tl::unexpected(copy.error());
        m_videoTrack = (*copy)->outputTrack();
        m_sinks[m_plan.video.track] = std::move(*copy);
        return {};
    }
    auto transcode = VideoTranscode::make(m_source, m_info, m_plan, m_context);
    if (!transcode)
        return tl::unexpected(transcode.error());
    m_videoTrack = (*transcode)->outputTrack();
    m_sinks[m_plan.video.track] = std::move(*transcode);
    return {};
}

void Exporter::makeAudioSink(const AudioPlan& plan) {
    const Track& track = trackOf(plan.track);
    if (plan.treatment == Treatment::Copy) {
        if (auto copy = TrackCopy::make(m_source, track, m_plan.zeroSeconds, m_context)) {
            m_sinks[plan.track] = std::move(*copy);
            return;
        }
    }
    auto transcode = AudioTranscode::make(m_source, track, plan, m_plan.zeroSeconds, m_context);
    if (transcode)
        m_sinks[plan.track] = std::move(*transcode);
    else
        m_context.warn("sound left out: " + transcode.error().text);
}

void Exporter::makeTextSink(const TextPlan& plan) {
    auto text = TextConversion::make(m_source, trackOf(plan.track), m_plan.zeroSeconds, m_context);
    if (text)
        m_sinks[plan.track] = std::move(*text);
    else
        m_context.warn("subtitles left out: " + text.error().text);
}

void Exporter::annotate() {
    const AVFormatContext* source = m_source.context();
    Mp4Writer::Annotations annotations;
    if (const auto* entry = av_dict_get(source->metadata, "creation_time", nullptr, 0))
        annotations.creationTime = entry->value;
    for (unsigned i = 0; i < source->nb_chapters; ++i) {
        const AVChapter* chapter = source->chapters[i];
        const double unit = av_q2d(chapter->time_base);
        const double start = static_cast<double>(chapter->start) * unit - m_plan.zeroSeconds;
        const double end = static_cast<double>(chapter->end) * unit - m_plan.zeroSeconds;
        const auto* title = av_dict_get(chapter->metadata, "title", nullptr, 0);
        if (end > 0)
            annotations.chapters.push_back({std::max(0.0, start), end, title ? title->value : ""});
    }
    m_context.writer.annotate(annotations);
}

// The demuxer gives protected tracks the plain codec's tag, so that each packet has to be looked at.
bool isEncrypted(const AVPacket& packet) {
    return av_packet_get_side_data(&packet, AV_PKT_DATA_ENCRYPTION_INFO, nullptr) != nullptr;
}

void Exporter::readAll() {
    PacketClock clock(m_source.context());
    const bool hasDuration = m_info.durationSeconds() > 0;
    while (!m_context.latch.hasFailed()) {
        PacketHandle packet = m_source.readPacket();
        if (!packet)
            return;
        const auto sink = m_sinks.find(packet->stream_index);
        if (sink == m_sinks.end())
            continue;
        if (isEncrypted(*packet)) {
            if (packet->stream_index == m_plan.video.track)
                m_context.latch.fail({ErrorCode::Encrypted, "The video is encrypted"});
            continue;
        }
        clock.mend(*packet);
        const bool isCopy = m_plan.video.treatment == Treatment::Copy;
        if (!m_source.tellsPositionsOnly() && (isCopy || !hasDuration))
            m_context.report(m_source.fractionRead());
        sink->second->take(std::move(packet));
    }
}

} // namespace

Result<std::string> exportVideo(const ExportJob& job, std::function<void(double)> progress) {
    auto input = openInput(job);
    if (!input)
        return tl::unexpected(input.error());
    return Exporter(std::move(*input), job.output, std::move(progress)).run();
}

} // namespace reelsmith::media
