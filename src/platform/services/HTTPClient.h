// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFlags>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>

namespace reelsmith {

/// How much of a download has come.
struct DownloadProgress {
    qint64 receivedBytes = 0;
    std::optional<qint64> expectedBytes = {}; ///< none where the server does not tell; never 0

    /// 0…1; none where it is not known how much is to come.
    std::optional<double> fractionCompleted() const;
};

/// Where the body of an answer is to go.
struct DownloadDestination {
    enum Option {
        RemovePreviousFile = 1,            ///< without it a file of that name fails the download
        CreateIntermediateDirectories = 2, ///< without it a missing folder does
    };
    Q_DECLARE_FLAGS(Options, Option)

    QUrl fileURL = {}; ///< a file in the documents folder; an empty URL fails the download
    Options options = {};
};

/// Fetches from the web. Main thread.
class HTTPClient {
public:
    using Destination = std::function<DownloadDestination()>;
    using Progress = std::function<void(const DownloadProgress& progress)>;
    using Completion = std::function<void(const std::optional<QUrl>& fileURL)>;

    /// The application's client; until one was set, one with which every download fails.
    static std::shared_ptr<HTTPClient> shared();

    /// For the composition root, before anything asks for the client, and with null when all is over.
    static void setShared(std::shared_ptr<HTTPClient> client);

    /// Transfers under way end, nothing of them stays behind, and nobody is told.
    virtual ~HTTPClient() = default;

    /// Begins to store what a GET of `url` yields. Any answer of a server is a success, "404" too; a transfer
    /// that does not come to its end leaves no file. `progress` and `completion` are called on the main
    /// queue, never before this call has returned; `completion` once, last, with the file or none.
    virtual void download(const QUrl& url, Destination destination, Progress progress,
                          Completion completion) = 0;
};

} // namespace reelsmith

Q_DECLARE_OPERATORS_FOR_FLAGS(reelsmith::DownloadDestination::Options)
