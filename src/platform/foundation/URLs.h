// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// Files as URLs. A file name is a row of bytes: names that are no valid UTF-8 survive the way to a URL and
/// back.
namespace reelsmith {

/// The URL of a local file; a relative path counts from the current folder.
QUrl fileUrl(const std::filesystem::path& path);

/// The same for an absolute path that is only handed through: taking it apart costs more than all the rest.
QUrl fileUrlOfBytes(std::string_view path);

/// The absolute path that a file URL names, with "." and ".." worked out by name alone and no "/" at its end.
/// Empty for any other URL, and where the path would hold a NUL.
std::filesystem::path filePath(const QUrl& url);

/// The same to be only handed through.
std::string filePathBytes(const QUrl& url);

/// `url` with one more component, taken as it is: a "/" in it names a folder, "%" and "?" are just
/// characters.
QUrl appendingPathComponent(const QUrl& url, const QString& component);

/// The last name of the path, "/" where that is all of it; empty for a URL without a path.
QString lastPathComponent(const QUrl& url);

/// The URL, relative or not, that `text` spells out by RFC 3986's own letters: nothing is trimmed, mended or
/// encoded. None for any other text, an empty one too.
std::optional<QUrl> urlFromString(const QString& text);

} // namespace reelsmith
