// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/Console.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace reelsmith {

namespace {

std::mutex consoleMutex;
ConsoleSink consoleSink;

void printToStandardOutput(const QString& line) {
    const QByteArray text = line.toUtf8() + '\n';
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout);
    std::fflush(stdout);
}

} // namespace

void console(const QString& line) {
    const std::lock_guard lock(consoleMutex);
    if (consoleSink)
        consoleSink(line);
    else
        printToStandardOutput(line);
}

void setConsoleSink(ConsoleSink sink) {
    const std::lock_guard lock(consoleMutex);
    consoleSink = std::move(sink);
}

} // namespace reelsmith
