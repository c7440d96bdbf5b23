// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/FailureLatch.h"
#include "media/Mp4Writer.h"

#include <functional>
#include <mutex>
#include <string>

namespace reelsmith::media {

/// What all parts of one export share. Outlives them.
class ExportContext {
public:
    ExportContext(int output, std::function<void(double)> progress)
        : writer(output), m_progress(std::move(progress)) {}

    FailureLatch latch;
    Mp4Writer writer;

    /// How far the export has come, 0…1; passed on when it has grown. Any thread.
    void report(double fraction);

    /// Something for the log that does not stop the export. Any thread.
    void warn(const std::string& text);

    std::string warnings() const { return m_warnings; }

private:
    std::mutex m_mutex;
    std::function<void(double)> m_progress;
    double m_reported = 0;
    std::string m_warnings;
};

} // namespace reelsmith::media
