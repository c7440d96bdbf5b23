// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/View.h"

#include <QRectF>

namespace reelsmith {

/// One piece of a collection or table, used anew for whatever item comes into sight. Its looks are an
/// interface file named after its class. Main thread.
class ReusableCell : public reelsmith::View {
    Q_OBJECT
    Q_PROPERTY(QString interfaceName READ interfaceName CONSTANT)
    Q_PROPERTY(QRectF frame READ frame NOTIFY placed)
    Q_PROPERTY(bool isShown READ isShown NOTIFY placed)
    Q_PROPERTY(bool isCurrent READ isCurrent NOTIFY changed)
    Q_PROPERTY(bool isSelected READ isSelected NOTIFY changed)

public:
    using View::View;

    /// The name of the interface file: that of the class.
    QString interfaceName() const;

    /// What it was dequeued by; empty for a cell that is not to be used again.
    const QString& reuseIdentifier() const { return m_reuseIdentifier; }
    void setReuseIdentifier(const QString& identifier) { m_reuseIdentifier = identifier; }

    /// Where it is in the content, in points.
    const QRectF& frame() const { return m_frame; }
    /// Whether it stands for an item now; else it waits for one, unseen.
    bool isShown() const { return m_number >= 0; }
    /// Which item or row it stands for, counted through all sections; negative for none.
    int number() const { return m_number; }

    void place(int number, const QRectF& frame);
    void putAway();

    /// Whether the keyboard is on it.
    bool isCurrent() const { return m_isCurrent; }
    void setCurrent(bool isCurrent) { assign(m_isCurrent, isCurrent); }
    bool isSelected() const { return m_isSelected; }
    void setSelected(bool isSelected) { assign(m_isSelected, isSelected); }

    /// What a tap does.
    Q_INVOKABLE void tap();
    /// What a long press, a right click or the menu key does; `contentOrigin`: where the upper left corner of
    /// the content is in the window.
    Q_INVOKABLE void openMenu(const QPointF& contentOrigin);

signals:
    void placed();
    void tapped(int number);
    void menuWanted(int number, const QPointF& contentOrigin);

protected:
    /// It stands for nothing any more, until it is dequeued again.
    virtual void didEndDisplaying() {}

private:
    QString m_reuseIdentifier;
    QRectF m_frame;
    int m_number = -1;
    bool m_isCurrent = false;
    bool m_isSelected = false;
};

} // namespace reelsmith
