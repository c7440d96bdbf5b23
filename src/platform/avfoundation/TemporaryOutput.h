// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mediaworker/Channel.h"
#include "platform/foundation/Error.h"

#include <QUrl>
#include <filesystem>
#include <memory>

namespace reelsmith {

/// A file in the making: hidden, in the folder of the file that it will become, and gone with this object
/// unless it was moved into place. A lock on it tells other processes that it is not left over.
class TemporaryOutput {
public:
    /// Fails where `output` can never be written: outside the documents folder, in no folder, under a name
    /// that is too long or a folder's. What stands under the name stays there for now.
    static Result<std::unique_ptr<TemporaryOutput>> create(const QUrl& output);

    ~TemporaryOutput();
    TemporaryOutput(const TemporaryOutput&) = delete;
    TemporaryOutput& operator=(const TemporaryOutput&) = delete;

    /// Readable and writable, empty at first.
    int descriptor() const { return m_file.number(); }

    /// Waits until all that was written stands on the disk: a power failure after moveIntoPlace() must not
    /// leave half a file under the name.
    Result<void> flush();

    /// Has what was written so far go to the disk meanwhile, so that flush() need not wait for it.
    void startFlushing() const;

    /// Gives the file its name, in the place of any file that has it.
    Result<void> moveIntoPlace();

    /// Removes what killed processes have left in a folder and those below it.
    static void removeLeftovers(const QUrl& folder);

private:
    TemporaryOutput(QUrl output, std::filesystem::path path, mediaworker::Descriptor file)
        : m_output(std::move(output)), m_path(std::move(path)), m_file(std::move(file)) {}

    QUrl m_output;
    std::filesystem::path m_path;
    mediaworker::Descriptor m_file;
};

} // namespace reelsmith
