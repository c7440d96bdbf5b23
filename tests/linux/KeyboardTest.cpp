// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/FeedbackHaptics.h"
#include "platform/linux/ShellKeyboard.h"
#include "platform/linux/TextFocus.h"

#include <QGuiApplication>
#include <QInputMethodQueryEvent>
#include <QMouseEvent>
#include <QWindow>

using namespace reelsmith;

namespace {

// A field of 100 x 50 units at the window's origin.
class Field : public QObject {
public:
    explicit Field(bool takesText) : m_takesText(takesText) {}
    bool event(QEvent* event) override {
        if (event->type() != QEvent::InputMethodQuery)
            return QObject::event(event);
        auto* question = static_cast<QInputMethodQueryEvent*>(event);
        question->setValue(Qt::ImEnabled, m_takesText);
        question->setValue(Qt::ImInputItemClipRectangle, QRectF(0, 0, 100, 50));
        return true;
    }

private:
    const bool m_takesText;
};

class FocusWindow : public QWindow {
public:
    QObject* focusObject() const override { return m_focus; }
    void focus(QObject* object) {
        m_focus = object;
        emit focusObjectChanged(object);
    }
    void tap(const QPointF& place) {
        QMouseEvent release(QEvent::MouseButtonRelease, place, place, Qt::LeftButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(this, &release);
    }

private:
    QObject* m_focus = nullptr;
};

} // namespace

using Keyboard = DesktopTest;

TEST_F(Keyboard, ComesWithATextFieldAndAgainWhenThatIsTapped) {
    m_desktop.appear(QStringLiteral("sm.puri.OSK0"));
    const TextFocus textFocus(std::make_unique<ShellKeyboard>(m_client));
    Field button(false), field(true), otherField(true);
    FocusWindow window;
    window.show();
    window.requestActivate();
    ASSERT_TRUE(runLoopUntil([&window] { return QGuiApplication::focusWindow() == &window; }));

    window.focus(&button);
    window.tap({10, 10});
    window.focus(&field);
    window.tap({10, 60});
    window.tap({10, 10});
    window.focus(&otherField);
    window.focus(&button);
    const auto calls = [this] { return m_desktop.calls(QStringLiteral("SetVisible")); };
    ASSERT_TRUE(runLoopUntil([&calls] { return calls().size() >= 3; }));
    QVariantList said;
    for (const QDBusMessage& call : calls())
        said += call.arguments();
    EXPECT_EQ(said, (QVariantList{true, true, false}));
}

TEST_F(Keyboard, HapticsNameTheApplicationAndTheEvent) {
    m_desktop.appear(QStringLiteral("org.sigxcpu.Feedback"));
    FeedbackHaptics(m_client, QStringLiteral("io.example.App")).impactOccurred();
    ASSERT_TRUE(runLoopUntil([this] { return m_desktop.isCalled(QStringLiteral("TriggerFeedback")); }));
    const QDBusMessage call = m_desktop.calls(QStringLiteral("TriggerFeedback"))[0];
    EXPECT_EQ(call.signature(), QStringLiteral("ssa{sv}i"));
    EXPECT_EQ(call.arguments().value(0), QStringLiteral("io.example.App"));
    EXPECT_EQ(call.arguments().value(1), QStringLiteral("button-pressed"));
}
