// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/ProgressViewController.h"

#include "conversion/RemainingTime.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/FatalError.h"
#include "sources/SourceDetails.h"

#include <array>
#include <charconv>
#include <cmath>

namespace reelsmith {

namespace {

constexpr double endOfInteger = 9223372036854775808.0;
constexpr double leastPlain = 1e-4;
constexpr double endOfPlain = 9007199254740992.0; // from here on not every integer is a double

// The shortest digits that read back as the same number, never without a fraction.
QString decimalText(double value) {
    const double size = std::fabs(value);
    const bool isPlain = size == 0 || (size >= leastPlain && size < endOfPlain);
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   isPlain ? std::chars_format::fixed : std::chars_format::scientific);
    QString text = QString::fromLatin1(digits.data(), end.ptr - digits.data());
    if (isPlain && !text.contains(QLatin1Char('.')))
        text += QStringLiteral(".0");
    return text;
}

qint64 percentageOf(double progress) {
    const double percentage = progress * 100;
    if (!(std::fabs(percentage) < endOfInteger))
        fatalError("Progress is no percentage", "conversion/ProgressViewController", __LINE__);
    return static_cast<qint64>(percentage);
}

} // namespace

ProgressViewController::ProgressViewController(DisplayMode displayMode) : m_displayMode(displayMode) {
    setModalTransitionStyle(UIModalTransitionStyle::CrossDissolve);
    setModalPresentationStyle(UIModalPresentationStyle::OverCurrentContext);
}

void ProgressViewController::viewDidLoad() {
    m_titleLabel.setText(m_displayMode == DisplayMode::convert ? QStringLiteral("Converting")
                                                               : QStringLiteral("Downloading"));
    m_progressView.setIndeterminate(m_displayMode == DisplayMode::download);
}

void ProgressViewController::setFile(const QString& name, const std::optional<QUrl>& video) {
    m_fileNameLabel.setText(name);
    if (!video)
        return;
    m_preview.emplace(*video,
                      [this](const VideoPreview::Facts& facts) { m_thumbImageView.setImage(facts.picture); });
}

void ProgressViewController::updateProgress(double progress) {
    DispatchQueue::main().async([self = QPointer(this), progress] {
        console(QStringLiteral("GOT VALUE: ") + decimalText(progress));
        const qint64 percentage = percentageOf(progress);
        if (self)
            self->show(progress, percentage);
    });
}

void ProgressViewController::show(double progress, qint64 percentage) {
    m_progressLabel.setText(QString::number(percentage) + QLatin1Char('%'));
    m_progressView.setProgress(progress);
    m_progressView.setIndeterminate(false);
    if (m_displayMode == DisplayMode::convert) {
        const auto elapsed = std::chrono::steady_clock::now() - m_begin;
        m_remainingLabel.setText(
            remainingTimeText(progress, std::chrono::duration_cast<std::chrono::milliseconds>(elapsed)));
    }
}

void ProgressViewController::showBytes(qint64 received, const std::optional<qint64>& expected) {
    const QString come = SourceDetails::sizeText(received);
    m_remainingLabel.setText(expected ? come + QStringLiteral(" of ") + SourceDetails::sizeText(*expected)
                                      : come);
}

void ProgressViewController::cancelTapped() {
    if (ProgressViewControllerDelegate* delegate = m_delegate.get())
        delegate->cancelled(*this);
}

bool ProgressViewController::goBack() {
    cancelTapped();
    return true;
}

} // namespace reelsmith
