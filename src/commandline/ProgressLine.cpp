// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/ProgressLine.h"

#include "commandline/StandardStreams.h"
#include "platform/foundation/ClockText.h"

#include <QLocale>
#include <cmath>
#include <cstdio>
#include <sys/ioctl.h>
#include <unistd.h>

namespace reelsmith {

namespace {

// Before this the pace says nothing.
constexpr double leastFraction = 0.01;
constexpr std::chrono::seconds leastTime{1};

void print(const QByteArray& text) {
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stderr);
    std::fflush(stderr);
}

int terminalColumns() {
    winsize size{};
    constexpr int usual = 80;
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

} // namespace

void ProgressLine::begin(const QString& name) {
    m_name = printable(name);
    m_begin = std::chrono::steady_clock::now();
}

void ProgressLine::show(double fraction) {
    const auto elapsed = std::chrono::steady_clock::now() - m_begin;
    write(text(m_name, fraction, std::chrono::floor<std::chrono::milliseconds>(elapsed)));
}

void ProgressLine::showBytes(qint64 bytes) {
    write(QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat) + QStringLiteral("  ") + m_name);
}

void ProgressLine::write(const QString& text) {
    print("\r\033[K" + text.left(terminalColumns() - 1).toUtf8());
    m_isShown = true;
}

void ProgressLine::clear() {
    if (m_isShown)
        print("\r\033[K");
    m_isShown = false;
}

QString ProgressLine::text(const QString& name, double fraction, std::chrono::milliseconds elapsed) {
    const QString percent = QStringLiteral("%1 %").arg(static_cast<int>(fraction * 100), 3);
    if (fraction < leastFraction || elapsed < leastTime)
        return percent + QStringLiteral("  ") + name;
    const double left = std::chrono::duration<double>(elapsed).count() * (1 - fraction) / fraction;
    return percent + QStringLiteral("  ") + clockText(std::llround(left), 1) + QStringLiteral(" left  ") +
           name;
}

} // namespace reelsmith
