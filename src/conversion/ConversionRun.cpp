// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/ConversionRun.h"

#include "conversion/ProgressViewController.h"
#include "conversion/VideoConversionViewController.h"
#include "conversion/VideoConverter.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/uikit/UIApplication.h"

namespace reelsmith {

ConversionRun::ConversionRun(VideoConversionViewController& screen, std::shared_ptr<VideoConverter> converter)
    : m_screen(screen), m_converter(converter), m_source(converter->videoURL()) {
    converter->setDelegate(this);
    converter->setOnFailure([run = QPointer(this)](const std::optional<QString>& reason) {
        DispatchQueue::main().async([run, reason = reason.value_or(QString())] {
            if (run)
                run->fail(reason);
        });
    });
    converter->setOnCancel([screen = QPointer(&screen), weak = std::weak_ptr(converter)] {
        if (screen)
            screen->dropConverter(weak.lock());
    });
}

ConversionRun::~ConversionRun() = default;

void ConversionRun::start(const QString& name) {
    m_name = name;
    m_card = m_screen.presentProgress(ProgressViewController::DisplayMode::convert, [run = QPointer(this)] {
        if (run)
            run->convert();
    });
    if (m_card)
        m_card->setFile(name + QStringLiteral(".mp4"), m_source);
}

void ConversionRun::convert() {
    const std::shared_ptr<VideoConverter> converter = m_converter.lock();
    if (!converter)
        return;
    m_isConverting = true;
    m_screen.updateStillConverting();
    // Where the access is refused, the export says why.
    m_access = std::make_unique<SecurityScopedAccess>(m_source);
    m_access->start();
    converter->convert(m_name, [run = QPointer(this)](const QUrl& output) {
        if (run)
            run->succeed(output);
    });
}

void ConversionRun::updateProgress(double progress) {
    if (m_screen.isShowing(m_card))
        m_card->updateProgress(progress);
    UIApplication::shared().notify({m_name,
                                    QStringLiteral("Converting: %1 %").arg(static_cast<int>(progress * 100)),
                                    UserNotification::Weight::Status});
}

void ConversionRun::succeed(const QUrl& output) {
    m_isConverting = false;
    UIApplication::shared().notify(
        {m_name + QStringLiteral(" is ready"), QStringLiteral("Tap to share it.")});
    m_screen.dismissCard(m_card, {});
    m_access->stop();
    DispatchQueue::main().async([screen = QPointer(&m_screen), output, weak = m_converter] {
        if (!screen)
            return;
        screen->share(output);
        screen->dropConverter(weak.lock());
    });
}

void ConversionRun::fail(const QString& reason) {
    m_isConverting = false;
    UIApplication::shared().notify({QStringLiteral("Conversion Failed"), m_name});
    m_screen.updateStillConverting();
    m_screen.keepOpen(std::move(m_access));
    m_screen.dismissCard(m_card, [screen = QPointer(&m_screen), weak = m_converter, reason] {
        if (!screen)
            return;
        screen->dropConverter(weak.lock());
        screen->presentFailure(QStringLiteral("convert"), reason);
    });
}

} // namespace reelsmith
