// SPDX-License-Identifier: GPL-3.0-or-later
#include "sources/ConversionQualityViewController.h"

#include "library/FileSystem.h"
#include "platform/foundation/FatalError.h"
#include "platform/foundation/URLs.h"
#include "platform/uikit/UIAlertController.h"
#include "settings/UserSettings.h"

#include <filesystem>
#include <limits>

namespace reelsmith {

namespace {

// What the photo library's editor calls every video that it has cut.
const QString nameOfEveryCut = QStringLiteral("trim");
const QString unnamed = QStringLiteral("new_video");

QString numberedName() {
    const qint64 count = UserSettings::shared().conversionCount();
    if (count == std::numeric_limits<qint64>::max())
        fatalError("The count of conversions overflows", "sources/ConversionQualityViewController", __LINE__);
    return QStringLiteral("converted_") + QString::number(count + 1);
}

} // namespace

ConversionQualityViewController::ConversionQualityViewController(const QUrl& videoURL)
    : m_videoURL(videoURL) {
    setModalPresentationStyle(UIModalPresentationStyle::OverCurrentContext);
}

void ConversionQualityViewController::viewDidLoad() {
    m_sourceNameLabel.setText(m_videoURL.fileName(QUrl::FullyDecoded));
    m_warningLabel.setHidden(true);
    connect(&m_filenameTextField, &View::changed, this, &ConversionQualityViewController::updateWarning);
    SourceDetails::load(m_videoURL, [self = QPointer(this)](const SourceDetails& details) {
        if (self)
            self->showDetails(details);
    });
    m_preview.emplace(m_videoURL,
                      [this](const VideoPreview::Facts& facts) { m_thumbImageView.setImage(facts.picture); });
}

void ConversionQualityViewController::viewWillAppear() {
    m_cardView.setBorder(1.0, QStringLiteral("light gray"));
    m_filenameTextField.setText(defaultName());
    updateWarning();
}

QString ConversionQualityViewController::defaultName() const {
    const QString last = lastPathComponent(m_videoURL);
    const QString candidate = last.isEmpty() ? unnamed : last.section(QLatin1Char('.'), 0, 0);
    return candidate == nameOfEveryCut ? numberedName() : candidate;
}

void ConversionQualityViewController::showDetails(const SourceDetails& details) {
    m_details = details;
    m_sourceDetailsLabel.setText(details.summary());
    emit estimatesChanged();
    updateWarning();
}

QStringList ConversionQualityViewController::estimates() const {
    QStringList texts;
    for (const std::optional<qint64>& bytes : m_details.estimatedBytes)
        texts.append(bytes ? QStringLiteral("≈ ") + SourceDetails::sizeText(*bytes) : QStringLiteral("–"));
    return texts;
}

void ConversionQualityViewController::updateWarning() {
    const auto& needed = m_details.estimatedBytes.at(static_cast<std::size_t>(m_quality));
    const auto& free = m_details.freeBytes;
    const QString name = m_filenameTextField.displayedText();
    const QUrl output =
        appendingPathComponent(FileSystem::shared().outputsFolder(), name + QStringLiteral(".mp4"));
    std::error_code ignored;
    QString warning;
    if (needed && free && *needed > *free) {
        warning = QStringLiteral("Needs about %1, only %2 is free")
                      .arg(SourceDetails::sizeText(*needed), SourceDetails::sizeText(*free));
    } else if (!name.isEmpty() && std::filesystem::exists(filePath(output), ignored)) {
        warning = QStringLiteral("Replaces the video that has this name now");
    }
    m_warningLabel.setText(warning);
    m_warningLabel.setHidden(warning.isEmpty());
}

void ConversionQualityViewController::qualityTapped() {
    switch (m_qualitySegmentedView.selectedSegmentIndex()) {
    case 0:
        m_quality = ConversionQuality::low;
        break;
    case 1:
        m_quality = ConversionQuality::medium;
        break;
    case 2:
        m_quality = ConversionQuality::high;
        break;
    default:
        break;
    }
    updateWarning();
}

void ConversionQualityViewController::convertTapped() {
    const QString name = m_filenameTextField.displayedText();
    if (name.isEmpty()) {
        present(UIAlertController::notice(QStringLiteral("Error"),
                                          QStringLiteral("You must enter a valid output name")),
                Animated::Yes);
        return;
    }
    QualityPickerDelegate* const delegate = m_delegate.get();
    if (delegate == nullptr || isBeingDismissed())
        return;
    delegate->dismissPresentedScreen([weak = m_delegate, source = m_videoURL, name, quality = m_quality] {
        if (QualityPickerDelegate* taker = weak.get())
            taker->qualityPicked(source, name, quality);
    });
}

void ConversionQualityViewController::requestDismiss() {
    dismiss(Animated::Yes);
}

} // namespace reelsmith
