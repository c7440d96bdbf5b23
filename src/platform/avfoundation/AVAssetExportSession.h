// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/AVAsset.h"
#include "platform/avfoundation/ExportPresets.h"
#include "platform/foundation/Error.h"

#include <functional>
#include <memory>
#include <optional>

namespace reelsmith {

enum class AVFileType { MPEG4 };

enum class AVAssetExportSessionStatus {
    Unknown = 0,
    Waiting = 1,
    Exporting = 2,
    Completed = 3,
    Failed = 4,
    Cancelled = 5,
};

/// One export of an asset into a file. Set it up, then start it; it goes on to its end even when this object
/// is dropped. Any thread.
class AVAssetExportSession {
public:
    /// Nothing for a preset name that is unknown.
    static std::shared_ptr<AVAssetExportSession> initWithAsset(const AVAsset& asset,
                                                               const QString& presetName);

    void setOutputURL(const QUrl& url);
    QUrl outputURL() const;
    void setOutputFileType(AVFileType type);
    std::optional<AVFileType> outputFileType() const;

    AVAssetExportSessionStatus status() const;

    /// Why the export failed.
    std::optional<Error> error() const;

    /// 0…1, never falling.
    float progress() const;

    /// Starts the export on a thread of its own and returns. `completion` is called on that thread, once,
    /// when the status is Completed, Failed or Cancelled, unless the application ends first. Where the system
    /// yields no thread it fails, and `completion` comes on the main queue. A second start is a fatal error.
    void exportAsynchronously(std::function<void()> completion);

    /// Ends the export with status Cancelled; one that has not been started will not do anything when it is.
    /// Nothing happens to one that has ended.
    void cancelExport();

    /// Waits until a started export has ended and its completion has returned, unless that is to come on the
    /// main queue. Not on the export's own thread.
    void waitUntilEnded() const;

private:
    class Export;
    explicit AVAssetExportSession(std::shared_ptr<Export> shared) : m_export(std::move(shared)) {}

    std::shared_ptr<Export> m_export;
};

} // namespace reelsmith
