// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/FolderListing.h"

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/URLs.h"

#include <QCollator>
#include <QDir>
#include <QStandardPaths>
#include <algorithm>

namespace reelsmith {

namespace {

FolderListing::Entry place(const QString& name, const QString& path) {
    return {QUrl::fromLocalFile(path), name, true, 0, {}};
}

// As people count: "film 9" before "film 10". The C locale cannot do that.
QCollator naturalOrder() {
    const QLocale locale = QLocale::system();
    QCollator collator(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    collator.setNumericMode(true);
    return collator;
}

} // namespace

FolderListing::Entries FolderListing::places() {
    Entries places{
        place(QStringLiteral("Home"), QStandardPaths::writableLocation(QStandardPaths::HomeLocation)),
        place(QStringLiteral("Videos"), QStandardPaths::writableLocation(QStandardPaths::MoviesLocation))};
    for (const QString& mounts : {QStringLiteral("/media"), QStringLiteral("/run/media")}) {
        if (!QDir(mounts).isEmpty(QDir::Dirs | QDir::NoDotAndDotDot))
            places.append(place(QStringLiteral("Memory cards"), mounts));
    }
    return places;
}

FolderListing::Entries FolderListing::list(const std::filesystem::path& folder, const DocumentTypes& types) {
    Entries entries;
    std::error_code error;
    namespace fs = std::filesystem;
    for (fs::directory_iterator item(folder, error), end; !error && item != end; item.increment(error)) {
        const QFileInfo info(item->path());
        if (info.isHidden() || !(info.isDir() || (info.isFile() && types.contain(info.fileName()))))
            continue;
        entries.append(
            {fileUrl(item->path()), info.fileName(), info.isDir(), info.size(), info.lastModified()});
    }
    QCollator collator = naturalOrder();
    std::ranges::sort(entries, [&collator](const Entry& one, const Entry& other) {
        return one.isFolder != other.isFolder ? one.isFolder : collator.compare(one.name, other.name) < 0;
    });
    return entries;
}

void FolderListing::read(const QUrl& folder, Completion completion) {
    m_stop.request_stop();
    m_stop = std::stop_source();
    DispatchQueue::global(QualityOfService::UserInitiated)
        .async([folder, types = m_types, stop = m_stop.get_token(), completion = std::move(completion)] {
            if (stop.stop_requested())
                return;
            const Entries entries = list(filePath(folder), types);
            DispatchQueue::main().async([entries, stop, completion] {
                if (!stop.stop_requested())
                    completion(entries);
            });
        });
}

} // namespace reelsmith
