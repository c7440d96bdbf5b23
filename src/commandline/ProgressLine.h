// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <chrono>

namespace reelsmith {

/// How far a conversion or a download has come, on one line of a terminal (standard error) that is written
/// over and over, cut to the terminal's width.
class ProgressLine {
public:
    /// Starts the clock anew.
    void begin(const QString& name);

    void show(double fraction);

    /// For a download of which it is not known how much is to come.
    void showBytes(qint64 bytes);

    /// Takes the line away.
    void clear();

    /// "42 %  1:05 left  NAME": what is left if all goes on at the pace so far; nothing said of it at the
    /// very start.
    static QString text(const QString& name, double fraction, std::chrono::milliseconds elapsed);

private:
    void write(const QString& text);

    QString m_name;
    std::chrono::steady_clock::time_point m_begin;
    bool m_isShown = false;
};

} // namespace reelsmith
