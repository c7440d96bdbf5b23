// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/ProgressDisplay.h"
#include "conversion/VideoConverterDelegate.h"
#include "platform/foundation/SecurityScopedAccess.h"

#include <QObject>
#include <QPointer>
#include <QUrl>
#include <memory>

namespace reelsmith {

class ProgressViewController;
class VideoConversionViewController;
class VideoConverter;

/// One conversion on the convert screen: its own card and its own converter, whatever else goes on there.
/// Main thread.
class ConversionRun : public QObject, public VideoConverterDelegate, public ProgressDisplay {
    Q_OBJECT

public:
    ConversionRun(VideoConversionViewController& screen, std::shared_ptr<VideoConverter> converter);
    ~ConversionRun() override;

    /// Shows the card, and converts once it stands. Without a place for a card nothing happens.
    void start(const QString& name);

    ProgressDisplay* progressDisplay() override { return this; }

    /// Shows it on the card while the screen shows that, and to a user who is elsewhere.
    void updateProgress(double progress) override;

    ProgressViewController* card() const { return m_card; }

    /// Whether the conversion goes on, seen or not.
    bool isConverting() const { return m_isConverting; }

private:
    void convert();
    void succeed(const QUrl& output);
    void fail(const QString& reason);

    VideoConversionViewController& m_screen;
    const std::weak_ptr<VideoConverter> m_converter;
    const QUrl m_source;
    QString m_name;
    QPointer<ProgressViewController> m_card;
    std::unique_ptr<SecurityScopedAccess> m_access;
    bool m_isConverting = false;
};

} // namespace reelsmith
