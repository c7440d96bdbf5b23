// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/VideoCollection.h"

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/URLs.h"
#include "platform/screens/DocumentTypes.h"

#include <QFile>
#include <QStandardPaths>
#include <algorithm>
#include <map>
#include <set>
#include <sys/stat.h>

namespace reelsmith {

namespace {

namespace fs = std::filesystem;

/// One search through folders.
class Search {
public:
    explicit Search(std::stop_token stop) : m_stop(std::move(stop)) {}

    void through(const fs::path& folder) {
        std::error_code error;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
             entry.increment(error)) {
            if (m_stop.stop_requested())
                return;
            if (!entry->path().filename().native().starts_with('.'))
                look(entry->path());
        }
    }

    std::vector<FoundVideo> takeFound() {
        std::ranges::stable_sort(m_found, std::ranges::greater(), &FoundVideo::modified);
        return std::move(m_found);
    }

private:
    void look(const fs::path& path) {
        struct stat status {};
        if (::stat(path.c_str(), &status) != 0)
            return;
        // Each file and folder once, however many links lead to it or back up from within it.
        const bool isFolder = S_ISDIR(status.st_mode);
        if (isFolder && m_seen.emplace(status.st_dev, status.st_ino).second)
            through(path);
        else if (S_ISREG(status.st_mode) && isMovie(path) &&
                 m_seen.emplace(status.st_dev, status.st_ino).second)
            add(path);
    }

    void add(const fs::path& path) {
        std::error_code error;
        if (const auto modified = fs::last_write_time(path, error); !error)
            m_found.push_back({fileUrl(path), modified});
    }

    bool isMovie(const fs::path& path) {
        const auto [known, isNew] = m_extensions.try_emplace(path.extension().native(), false);
        if (isNew)
            known->second = m_movies.contain(QFile::decodeName(path.filename().c_str()));
        return known->second;
    }

    const std::stop_token m_stop;
    const DocumentTypes m_movies{{kUTTypeMovie}};
    std::set<std::pair<dev_t, ino_t>> m_seen;
    std::map<std::string, bool> m_extensions;
    std::vector<FoundVideo> m_found;
};

} // namespace

std::vector<fs::path> VideoCollection::folders() {
    std::vector<fs::path> all{"/media", "/run/media"};
    for (const auto kind : {QStandardPaths::MoviesLocation, QStandardPaths::PicturesLocation}) {
        for (const QString& folder : QStandardPaths::standardLocations(kind))
            all.emplace_back(QFile::encodeName(folder).toStdString());
    }
    return all;
}

std::vector<FoundVideo> VideoCollection::find(const std::vector<fs::path>& folders,
                                              const std::stop_token& stop) {
    Search search(stop);
    for (const fs::path& folder : folders)
        search.through(folder);
    return search.takeFound();
}

void VideoCollection::read(Completion completion) {
    m_search.request_stop();
    m_search = std::stop_source();
    DispatchQueue::global(QualityOfService::UserInitiated)
        .async([folders = m_folders, stop = m_search.get_token(), completion = std::move(completion)] {
            QList<QUrl> videos;
            for (FoundVideo& video : find(folders, stop))
                videos.append(std::move(video.url));
            DispatchQueue::main().async([stop, videos, completion] {
                if (!stop.stop_requested())
                    completion(videos);
            });
        });
}

} // namespace reelsmith
