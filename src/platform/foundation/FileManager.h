// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/Error.h"

#include <QList>
#include <QUrl>
#include <chrono>
#include <filesystem>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

namespace reelsmith {

/// The file layer. As a phone's sandbox would, it changes nothing outside the documents folder. Any thread.
class FileManager {
public:
    /// Is told of a file or folder that was removed or replaced, on the thread that did it, by a URL without
    /// "..".
    using ChangeObserver = std::function<void(const QUrl&)>;

    using Date = std::chrono::sys_time<std::chrono::nanoseconds>;

    /// An entry of a folder. Its URL costs more than finding it, and is made when asked for.
    struct Entry {
        /// Absolute, in the file system's bytes.
        std::string path;
        /// When it was last written to, where that was asked for and can be found out.
        std::optional<Date> modified;

        QUrl url() const;
    };

    enum class Facts { NamesOnly, ModificationDates };

    static FileManager& defaultManager();

    /// Makes a folder and those above it; one that is there already is no error.
    Result<void> createDirectory(const QUrl& url);

    /// The entries of a folder in the file system's own order, hidden ones left out.
    Result<std::vector<Entry>> contentsOfDirectory(const QUrl& url, Facts facts = Facts::NamesOnly) const;

    /// Removes a file, a link (not what it leads to), or a folder with all that it holds. Refused outside the
    /// documents folder.
    Result<void> removeItem(const QUrl& url);

    /// Puts `replacement`, a file in the same folder, under the name `url`, in one step: at no time is there
    /// no file or half a one. Refused outside the documents folder.
    Result<void> replaceItem(const QUrl& url, const std::filesystem::path& replacement);

    /// Adds an observer, for the rest of the process's life.
    void addChangeObserver(ChangeObserver observer);

private:
    FileManager() = default;
    void tellObservers(const QUrl& url) const;

    mutable std::mutex m_mutex;
    std::vector<ChangeObserver> m_observers;
};

} // namespace reelsmith
