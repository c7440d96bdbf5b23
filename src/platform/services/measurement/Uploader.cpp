// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/Uploader.h"

#include "platform/services/RetryTime.h"
#include "platform/services/measurement/Gzip.h"

#include <QRandomGenerator>
#include <QtGlobal>
#include <algorithm>
#include <utility>

namespace reelsmith {

namespace {

using namespace std::chrono_literals;

constexpr auto patienceWithOtherUploader = 1min;
constexpr qsizetype mostBundleBytes = qsizetype{64} * 1024; // before it is compressed
constexpr int longestMessage = 200;

UploadSchedule::Clock::time_point now() {
    return UploadSchedule::Clock::now();
}

QList<StoredEvent> sampled(const QList<StoredEvent>& events, const MeasurementSettings& settings) {
    QList<StoredEvent> chosen = events;
    chosen.removeIf([&settings](const StoredEvent& stored) { return !settings.isSampled(stored.event.id); });
    return chosen;
}

std::optional<std::chrono::milliseconds> retryAfter(const ServiceResult& result) {
    const auto text = result ? result->header("Retry-After") : std::nullopt;
    const QDateTime current = QDateTime::currentDateTimeUtc();
    const auto time = text ? retryTime(*text, current) : std::nullopt;
    return time ? std::optional(std::chrono::milliseconds(current.msecsTo(*time))) : std::nullopt;
}

} // namespace

Uploader::Uploader(UploadParts parts, const QString& folder, EventDatabase& database, LossTally& tally,
                   std::shared_ptr<MeasurementInbox> inbox)
    : m_parts(std::move(parts)),
      m_lockPath(folder + QStringLiteral("/upload.lock")),
      m_database(database),
      m_tally(tally),
      m_inbox(std::move(inbox)) {}

std::optional<std::chrono::milliseconds> Uploader::advance() {
    if (!m_parts.endpoint || m_lock)
        return std::nullopt;
    if (!settings().isEnabled)
        return settings().uploadInterval;
    if (m_database.oldest(1).isEmpty())
        return std::nullopt;
    if (const auto wait = remaining(); wait > 0ms)
        return wait;
    m_lock = FileLock::ifFree(m_lockPath);
    if (!m_lock)
        return patienceWithOtherUploader;
    // Another process may have come to its end between the two.
    const auto wait = remaining();
    if (wait == 0ms && sendBundle())
        return std::nullopt;
    m_lock.reset();
    return std::max<std::chrono::milliseconds>(wait, m_parts.shortestRetryWait);
}

void Uploader::take(const ServiceResult& result) {
    const OtlpAnswer answer = OtlpAnswer::of(result);
    if (!answer.message.isEmpty())
        qInfo("Measurement: an upload: %s", qUtf8Printable(answer.message.left(longestMessage)));
    bool goesOn = false;
    if (answer.verdict == OtlpAnswer::Verdict::RetryLater)
        putOff(retryAfter(result));
    else
        goesOn = settle(answer);
    if (!goesOn || !sendBundle())
        m_lock.reset();
}

MeasurementSettings Uploader::settings() const {
    return m_parts.remoteConfig ? MeasurementSettings::read(*m_parts.remoteConfig) : MeasurementSettings();
}

std::chrono::milliseconds Uploader::remaining() {
    return m_database.schedule().remaining(now(), settings().uploadInterval);
}

// Whether a request is under way now.
bool Uploader::sendBundle() {
    while (true) {
        const MeasurementSettings current = settings();
        const QByteArray body = fillBundle(current);
        if (!current.isEnabled || m_bundle.isEmpty())
            return false;
        if (!body.isEmpty())
            return post(body);
        // Nothing of it belongs to the share that is uploaded.
        if (!m_database.remove(m_bundle, m_database.schedule()))
            return false;
    }
}

QByteArray Uploader::fillBundle(const MeasurementSettings& settings) {
    const QString instance = m_parts.installationId ? m_parts.installationId() : QString();
    const OtlpService service{QStringLiteral("reelsmith"), QStringLiteral(REELSMITH_VERSION), instance};
    m_bundle = m_database.oldest(settings.maximumBundle);
    m_isFull = m_bundle.size() == settings.maximumBundle;
    while (true) {
        const QList<StoredEvent> chosen = sampled(m_bundle, settings);
        const QByteArray body = chosen.isEmpty() ? QByteArray() : otlpLogs(chosen, service);
        if (body.size() <= mostBundleBytes || m_bundle.size() == 1)
            return body;
        m_bundle.resize(m_bundle.size() / 2);
        m_isFull = true;
    }
}

bool Uploader::post(const QByteArray& body) {
    m_before = m_database.schedule();
    // Noted first: short commands that end before the answer, or a database that takes nothing any more, must
    // not send the same again and again.
    if (!m_database.setSchedule(m_before.underWay(now(), m_parts.shortestRetryWait)))
        return false;
    ServiceRequest request{m_parts.endpoint->url, m_parts.endpoint->headers, gzip(body)};
    request.headers.emplaceBack("Content-Type", "application/json");
    request.headers.emplaceBack("Content-Encoding", "gzip");
    m_parts.transport->post(request,
                            [inbox = m_inbox](const ServiceResult& result) { inbox->postAnswer(result); });
    return true;
}

void Uploader::putOff(std::optional<std::chrono::milliseconds> retryAfter) {
    const double spread = QRandomGenerator::global()->generateDouble();
    m_database.setSchedule(m_before.afterFailure(now(), retryAfter, m_parts.shortestRetryWait, spread));
}

// Whether the next bundle may follow at once. After one that was refused it may not: what is wrong with it
// may be wrong with all.
bool Uploader::settle(const OtlpAnswer& answer) {
    const bool isRefused = answer.verdict == OtlpAnswer::Verdict::Refused;
    m_tally.add(Loss::Refusal, {}, isRefused ? m_bundle.size() : 0);
    m_tally.add(Loss::Rejection, {}, std::min<qint64>(answer.rejectedRecords, m_bundle.size()));
    return m_database.remove(m_bundle, UploadSchedule::afterSuccess(now())) && !isRefused && m_isFull;
}

} // namespace reelsmith
