// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>
#include <filesystem>

namespace reelsmith {

/// The user's leave to read one file, held from its start to its stop. Any thread.
class SecurityScopedAccess {
public:
    explicit SecurityScopedAccess(QUrl url) : m_url(std::move(url)) {}
    ~SecurityScopedAccess() { stop(); }
    SecurityScopedAccess(const SecurityScopedAccess&) = delete;
    SecurityScopedAccess& operator=(const SecurityScopedAccess&) = delete;

    /// False when the file cannot be opened for reading.
    bool start();
    void stop();

    /// Whether `path` leads to a file that some access is open on, in this process, or to a folder with such
    /// a file in it, whatever names these go by.
    static bool isOpenOn(const std::filesystem::path& path);

private:
    QUrl m_url;
    int m_descriptor = -1;
};

} // namespace reelsmith
