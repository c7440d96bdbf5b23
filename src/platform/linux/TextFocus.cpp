// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/TextFocus.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodQueryEvent>
#include <QPointerEvent>
#include <utility>

namespace reelsmith {

namespace {

bool takesText(QObject* object) {
    QInputMethodQueryEvent question(Qt::ImEnabled);
    return object && QCoreApplication::sendEvent(object, &question) && question.value(Qt::ImEnabled).toBool();
}

} // namespace

TextFocus::TextFocus(std::unique_ptr<OnScreenKeyboard> keyboard) : m_keyboard(std::move(keyboard)) {
    connect(qGuiApp, &QGuiApplication::focusObjectChanged, this, &TextFocus::follow);
    qGuiApp->installEventFilter(this);
}

bool TextFocus::eventFilter(QObject* watched, QEvent* event) {
    const bool isTap = event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::TouchEnd;
    if (m_isInTextField && isTap && watched->isWindowType()) {
        const QPointF place = static_cast<QPointerEvent*>(event)->points().constFirst().position();
        if (QGuiApplication::inputMethod()->inputItemClipRectangle().contains(place))
            m_keyboard->setVisible(true);
    }
    return QObject::eventFilter(watched, event);
}

void TextFocus::follow(QObject* focusObject) {
    const bool isInTextField = takesText(focusObject);
    if (std::exchange(m_isInTextField, isInTextField) != isInTextField)
        m_keyboard->setVisible(isInTextField);
}

} // namespace reelsmith
