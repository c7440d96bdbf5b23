// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/screens/DocumentTypes.h"

#include <QDateTime>
#include <QList>
#include <QUrl>
#include <filesystem>
#include <functional>
#include <stop_token>

namespace reelsmith {

/// What a folder holds for somebody who looks for documents. Main thread, except where said.
class FolderListing {
public:
    struct Entry {
        QUrl url;
        QString name;
        bool isFolder = false;
        qint64 sizeBytes = 0;
        QDateTime modified;
    };
    using Entries = QList<Entry>;
    using Completion = std::function<void(const Entries& entries)>;

    /// Where to begin: the user's home, the folder for videos, and what memory cards there are.
    static Entries places();

    /// The folders by name, then the documents of the types by name. Hidden ones are left out; what cannot be
    /// read is empty. Any thread.
    static Entries list(const std::filesystem::path& folder, const DocumentTypes& types);

    explicit FolderListing(DocumentTypes types) : m_types(std::move(types)) {}
    ~FolderListing() { m_stop.request_stop(); }
    FolderListing(const FolderListing&) = delete;
    FolderListing& operator=(const FolderListing&) = delete;

    /// Reads a folder in the background; one being read is given up. `completion` is called on the main
    /// queue, unless this object is gone by then.
    void read(const QUrl& folder, Completion completion);

private:
    const DocumentTypes m_types;
    std::stop_source m_stop;
};

} // namespace reelsmith
