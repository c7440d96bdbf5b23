// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/URLs.h"

#include <QRegularExpression>

namespace reelsmith {

namespace {

QByteArray percentEncoded(const QByteArray& path) {
    return path.toPercentEncoding("/");
}

} // namespace

QUrl fileUrl(const std::filesystem::path& path) {
    if (!path.is_absolute())
        return fileUrl(std::filesystem::absolute(path));
    return fileUrlOfBytes(path.native());
}

QUrl fileUrlOfBytes(std::string_view path) {
    static const QUrl root(QStringLiteral("file:///"));
    const auto bytes = QByteArray::fromRawData(path.data(), static_cast<qsizetype>(path.size()));
    QUrl url = root;
    url.setPath(QString::fromLatin1(percentEncoded(bytes)), QUrl::TolerantMode);
    return url;
}

std::filesystem::path filePath(const QUrl& url) {
    return filePathBytes(url);
}

std::string filePathBytes(const QUrl& url) {
    const QByteArray bytes = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    if (!url.isLocalFile() || !bytes.startsWith('/') || bytes.contains('\0'))
        return {};
    // Most paths are in order as they are.
    if (!bytes.contains("/.") && !bytes.contains("//") && !bytes.endsWith('/'))
        return bytes.toStdString();
    const std::filesystem::path path = std::filesystem::path(bytes.toStdString()).lexically_normal();
    return !path.has_filename() && path.has_relative_path() ? path.parent_path() : path;
}

QUrl appendingPathComponent(const QUrl& url, const QString& component) {
    QByteArray path = url.path(QUrl::FullyEncoded).toUtf8();
    if (!path.endsWith('/'))
        path += '/';
    QUrl longer = url;
    longer.setPath(QString::fromLatin1(path + percentEncoded(component.toUtf8())), QUrl::TolerantMode);
    return longer;
}

QString lastPathComponent(const QUrl& url) {
    const QString path = url.path(QUrl::FullyDecoded);
    const QString last = path.section(QLatin1Char('/'), -1, -1, QString::SectionSkipEmpty);
    return last.isEmpty() && !path.isEmpty() ? QStringLiteral("/") : last;
}

// QUrl's strict mode lets some letters pass that RFC 3986 has no place for, hence the grammar's own look
// first: brackets belong to the host alone.
std::optional<QUrl> urlFromString(const QString& text) {
    static const QRegularExpression grammar(QStringLiteral(
        R"(\A(?:[A-Za-z][A-Za-z0-9+.-]*:)?(?://(?:(?:[\w.~!$&'()*+,;=:-]|%[0-9A-Fa-f]{2})*@)?)"
        R"((?:\[[0-9A-Fa-f:.]+\]|(?:[\w.~!$&'()*+,;=-]|%[0-9A-Fa-f]{2})*)(?::[0-9]*)?(?=[/?#]|\z))?)"
        R"((?:[\w.~!$&'()*+,;=:@/-]|%[0-9A-Fa-f]{2})*(?:\?(?:[\w.~!$&'()*+,;=:@/?-]|%[0-9A-Fa-f]{2})*)?)"
        R"((?:#(?:[\w.~!$&'()*+,;=:@/?-]|%[0-9A-Fa-f]{2})*)?\z)"));
    const QUrl url(text, QUrl::StrictMode);
    if (text.isEmpty() || !url.isValid() || !grammar.match(text).hasMatch())
        return std::nullopt;
    return url;
}

} // namespace reelsmith
