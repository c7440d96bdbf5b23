// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Animation.h"

#include "platform/foundation/DispatchQueue.h"

#include <QTimer>
#include <QVariantAnimation>

namespace reelsmith {

namespace {

constexpr std::chrono::milliseconds grace{2000};

void place(const std::vector<Movement>& movements, qreal way) {
    for (const Movement& movement : movements) {
        if (movement.item)
            movement.item->setProperty(movement.property,
                                       movement.from + (movement.to - movement.from) * way);
    }
}

} // namespace

void animate(QObject& owner, std::vector<Movement> movements, std::chrono::milliseconds duration,
             QEasingCurve::Type curve, std::function<void()> done) {
    if (duration <= std::chrono::milliseconds::zero()) {
        place(movements, 1);
        DispatchQueue::main().async([owner = QPointer(&owner), done = std::move(done)] {
            if (owner)
                done();
        });
        return;
    }
    place(movements, 0);
    auto* const animation = new QVariantAnimation(&owner);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    animation->setDuration(static_cast<int>(duration.count()));
    animation->setEasingCurve(curve);
    QObject::connect(animation, &QVariantAnimation::valueChanged, animation,
                     [movements](const QVariant& value) { place(movements, value.toReal()); });
    QObject::connect(animation, &QVariantAnimation::finished, animation, [animation, movements, done] {
        place(movements, 1);
        animation->deleteLater();
        done();
    });
    // Animations stand still where no frame is ever drawn; the screens must not.
    auto* const watchdog = new QTimer(animation);
    watchdog->setSingleShot(true);
    QObject::connect(watchdog, &QTimer::timeout, animation, [animation] {
        qWarning("A change of screens got stuck and was cut short");
        animation->setCurrentTime(animation->duration());
    });
    watchdog->start(duration + grace);
    animation->start();
}

} // namespace reelsmith
