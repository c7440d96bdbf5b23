// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/LocalInstallations.h"

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/FileLock.h"

#include <QDir>
#include <QRandomGenerator>
#include <QUuid>
#include <array>

namespace reelsmith {

namespace {

constexpr auto base64Options = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;
constexpr int tokenBytes = 32;

QString newId() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QString newToken() {
    std::array<quint64, tokenBytes / sizeof(quint64)> bits{};
    QRandomGenerator::system()->fillRange(bits.data(), static_cast<qsizetype>(bits.size()));
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(bits.data()), tokenBytes);
    return QString::fromLatin1(bytes.toBase64(base64Options));
}

bool isId(const QString& text) {
    return !text.isEmpty() && QUuid::fromString(text).toString(QUuid::WithoutBraces) == text;
}

bool isToken(const QString& text) {
    const auto decoded = QByteArray::fromBase64Encoding(
        text.toLatin1(), base64Options | QByteArray::AbortOnBase64DecodingErrors);
    return decoded && decoded.decoded.size() == tokenBytes;
}

} // namespace

LocalInstallations::LocalInstallations(const QString& folder)
    : m_folder(folder),
      m_idFile(folder + QStringLiteral("/installation-id")),
      m_tokenFile(folder + QStringLiteral("/installation-token")) {}

QString LocalInstallations::id() {
    const std::lock_guard lock(m_mutex);
    if (m_id.isEmpty())
        m_id = keptOrNew(m_idFile, isId, newId);
    return m_id;
}

void LocalInstallations::authTokenForcingRefresh(Refresh refresh, AuthTokenCompletion completion) {
    DispatchQueue::global(QualityOfService::UserInitiated)
        .async([self = shared_from_this(), refresh, completion = std::move(completion)] {
            completion(InstallationAuthToken{self->token(refresh)}, std::nullopt);
        });
}

QString LocalInstallations::token(Refresh refresh) {
    const std::lock_guard lock(m_mutex);
    const auto isGood = [refresh](const QString& text) {
        return refresh == Refresh::IfExpired && isToken(text);
    };
    if (!isGood(m_token))
        m_token = keptOrNew(m_tokenFile, isGood, newToken);
    return m_token;
}

template<typename IsGood, typename Make>
QString LocalInstallations::keptOrNew(const StateFile& file, IsGood isGood, Make make) const {
    QDir().mkpath(m_folder);
    const FileLock otherPrograms(m_folder + QStringLiteral("/installation.lock"));
    const QString kept = QString::fromLatin1(file.read().value_or(QByteArray())).trimmed();
    if (isGood(kept))
        return kept;
    const QString made = make();
    file.replace(made.toLatin1() + '\n');
    return made;
}

} // namespace reelsmith
