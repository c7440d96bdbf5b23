// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/ShellKeyboard.h"
#include "platform/linux/TextFocus.h"

#include <QGuiApplication>
#include <QInputMethodQueryEvent>
#include <QMouseEvent>
#include <QWindow>

using namespace reelsmith;

namespace {

// Something of 100 x 50 units at the window's origin.
class Control : public QObject {
public:
    explicit Control(bool takesText) : m_takesText(takesText) {}
    bool event(QEvent* event) override {
        if (auto* question = dynamic_cast<QInputMethodQueryEvent*>(event)) {
            question->setValue(Qt::ImEnabled, m_takesText);
            question->setValue(Qt::ImInputItemClipRectangle, QRectF(0, 0, 100, 50));
        }
        return true;
    }
    const bool m_takesText;
};

class Window : public QWindow {
public:
    QObject* focusObject() const override { return m_focus; }
    void focus(QObject& object) { emit focusObjectChanged(m_focus = &object); }
    void tap(const QPointF& place) {
        QMouseEvent release(QEvent::MouseButtonRelease, place, place, Qt::LeftButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(this, &release);
    }
    QObject* m_focus = nullptr;
};

} // namespace

using Keyboard = DesktopTest;

TEST_F(Keyboard, ComesWithATextFieldAndAgainWhenThatIsTapped) {
    m_desktop.appear("sm.puri.OSK0");
    const TextFocus textFocus(std::make_unique<ShellKeyboard>(m_client));
    Control button(false), field(true), otherField(true);
    Window window;
    window.show();
    window.requestActivate();
    ASSERT_TRUE(runLoopUntil([&window] { return QGuiApplication::focusWindow() == &window; }));

    window.focus(button);
    window.tap({10, 10});
    window.focus(field);
    window.tap({10, 60});
    window.tap({10, 10});
    window.focus(otherField);
    window.focus(button);
    QVariantList said;
    EXPECT_TRUE(runLoopUntil([&] {
        said.clear();
        for (const QDBusMessage& call : m_desktop.calls("SetVisible"))
            said += call.arguments();
        return said.size() >= 3;
    }));
    EXPECT_EQ(said, (QVariantList{true, true, false}));
}
