// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/ProgressLine.h"

#include "commandline/StandardStreams.h"
#include "platform/foundation/ClockText.h"

#include <QLocale>
#include <cmath>
#include <cstdio>

namespace reelsmith {

namespace {

// Before this the pace says nothing.
constexpr double leastFraction = 0.01;

void print(const QByteArray& text) {
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stderr);
    std::fflush(stderr);
}

} // namespace

void ProgressLine::begin(const QString& name) {
    m_name = printable(name);
    m_begin = std::chrono::steady_clock::now();
}

void ProgressLine::show(double fraction) {
    const auto elapsed = std::chrono::steady_clock::now() - m_begin;
    write(text(m_name, fraction, std::chrono::floor<std::chrono::seconds>(elapsed)));
}

void ProgressLine::showBytes(qint64 bytes) {
    write(QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat) + QStringLiteral("  ") + m_name);
}

void ProgressLine::write(const QString& text) {
    print("\r\033[K" + text.toUtf8());
    m_isShown = true;
}

void ProgressLine::clear() {
    if (m_isShown)
        print("\r\033[K");
    m_isShown = false;
}

QString ProgressLine::text(const QString& name, double fraction, std::chrono::seconds elapsed) {
    const QString percent = QStringLiteral("%1 %").arg(static_cast<int>(fraction * 100), 3);
    if (fraction < leastFraction)
        return percent + QStringLiteral("  ") + name;
    const double left = static_cast<double>(elapsed.count()) * (1 - fraction) / fraction;
    return percent + QStringLiteral("  ") + clockText(std::llround(left), 1) + QStringLiteral(" left  ") +
           name;
}

} // namespace reelsmith
