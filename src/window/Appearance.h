// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSizeF>
#include <QtQml/qqmlregistration.h>
#include <utility>

class QQmlEngine;

namespace reelsmith {

/// What the looks depend on: the desktop's wishes and the window's size. One for each QML engine, which owns
/// it; the window feeds it. Main thread.
class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(bool hasHighContrast READ hasHighContrast NOTIFY changed)
    Q_PROPERTY(qreal textScale READ textScale NOTIFY changed)
    Q_PROPERTY(bool isTurned READ isTurned NOTIFY changed)
    Q_PROPERTY(qreal durationsScale READ durationsScale NOTIFY changed)
    Q_PROPERTY(qreal windowWidth READ windowWidth NOTIFY changed)
    Q_PROPERTY(qreal windowHeight READ windowHeight NOTIFY changed)
    Q_PROPERTY(qreal columnWidth READ columnWidth NOTIFY changed)
    Q_PROPERTY(bool isCompact READ isCompact NOTIFY changed)
    Q_PROPERTY(bool isTall READ isTall NOTIFY changed)
    Q_PROPERTY(bool isLargeText READ isLargeText NOTIFY changed)
    Q_PROPERTY(bool isByKey READ isByKey NOTIFY inputChanged)

public:
    using QObject::QObject;

    /// That of `engine`, which must know where the QML modules are.
    static Appearance& of(QQmlEngine& engine);

    bool isDark() const { return m_isDark; }
    void setDark(bool dark) { assign(m_isDark, dark); }

    bool hasHighContrast() const { return m_hasHighContrast; }
    void setHighContrast(bool high) { assign(m_hasHighContrast, high); }

    qreal textScale() const { return m_textScale; } ///< 1…1.5
    void setTextScale(qreal scale) { assign(m_textScale, qBound(1.0, scale, 1.5)); }

    /// Whether screens that may lie on their side do so now.
    bool isTurned() const { return m_isTurned; }
    void setTurned(bool turned) { assign(m_isTurned, turned); }

    /// What every duration is multiplied by; 0 lets everything happen at once.
    qreal durationsScale() const { return m_isStill ? 0 : m_durationsScale; }
    void setDurationsScale(qreal scale) { assign(m_durationsScale, scale); }
    void setStill(bool still) { assign(m_isStill, still); } ///< 0 whatever else is said

    qreal windowWidth() const { return m_windowSize.width(); }   ///< in points
    qreal windowHeight() const { return m_windowSize.height(); } ///< in points
    void setWindowSize(QSizeF size) { assign(m_windowSize, size); }

    /// How wide the screens are: the window, as far as a phone goes. In points.
    qreal columnWidth() const { return qMin(windowWidth(), 480.0); }

    bool isCompact() const { return windowHeight() < 480; } ///< a phone lying down
    bool isTall() const { return windowHeight() >= 784; }   ///< has room for more than the controls
    bool isLargeText() const { return m_textScale >= 1.3; }

    /// Whether the user's last input was a key: who points does not want to see where the keyboard is.
    bool isByKey() const { return m_isByKey; }
    void setByKey(bool byKey) {
        if (std::exchange(m_isByKey, byKey) != byKey)
            emit inputChanged();
    }

signals:
    /// Any property has another value, but for isByKey.
    void changed();
    void inputChanged();

private:
    template<typename Value>
    void assign(Value& member, Value value) {
        if (member == value)
            return;
        member = value;
        emit changed();
    }

    bool m_isDark = false;
    bool m_hasHighContrast = false;
    bool m_isStill = false;
    bool m_isTurned = false;
    bool m_isByKey = false;
    qreal m_textScale = 1;
    qreal m_durationsScale = 1;
    QSizeF m_windowSize{390, 844};
};

} // namespace reelsmith
