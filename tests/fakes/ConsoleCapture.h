// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/Console.h"

#include <QStringList>
#include <mutex>

namespace reelsmith {

/// Keeps what the application prints, for as long as it lives. Any thread.
class ConsoleCapture {
public:
    ConsoleCapture() {
        setConsoleSink([this](const QString& line) {
            const std::lock_guard lock(m_mutex);
            m_lines.append(line);
        });
    }
    ~ConsoleCapture() { setConsoleSink({}); }

    ConsoleCapture(const ConsoleCapture&) = delete;
    ConsoleCapture& operator=(const ConsoleCapture&) = delete;

    QStringList lines() const {
        const std::lock_guard lock(m_mutex);
        return m_lines;
    }

private:
    mutable std::mutex m_mutex;
    QStringList m_lines;
};

} // namespace reelsmith
