// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointF>
#include <QString>

namespace reelsmith {

/// The shadow of a piece of a screen; names and numbers of the platform, for the theme to look up.
struct LayerShadow {
    QString colorName;
    QPointF offset;
    qreal radius = 3;  ///< in points
    qreal opacity = 0; ///< none at first

    bool operator==(const LayerShadow&) const = default;
};

/// What a controller knows of a piece of its screen: an outlet. The interface file binds to it. Main thread.
class View : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isHidden READ isHidden WRITE setHidden NOTIFY changed)
    Q_PROPERTY(bool isEnabled READ isEnabled WRITE setEnabled NOTIFY changed)
    Q_PROPERTY(qreal alpha READ alpha WRITE setAlpha NOTIFY changed)
    Q_PROPERTY(qreal cornerRadius READ cornerRadius WRITE setCornerRadius NOTIFY changed)
    Q_PROPERTY(qreal borderWidth READ borderWidth NOTIFY changed)
    Q_PROPERTY(QString borderColorName READ borderColorName NOTIFY changed)

public:
    using QObject::QObject;

    bool isHidden() const { return m_isHidden; }
    void setHidden(bool hidden);

    bool isEnabled() const { return m_isEnabled; }
    void setEnabled(bool enabled);

    qreal alpha() const { return m_alpha; } ///< 0, not to be seen, to 1
    void setAlpha(qreal alpha) { assign(m_alpha, alpha); }

    qreal cornerRadius() const { return m_cornerRadius; } ///< in points
    void setCornerRadius(qreal radius) { assign(m_cornerRadius, radius); }

    qreal borderWidth() const { return m_borderWidth; }                  ///< in points
    const QString& borderColorName() const { return m_borderColorName; } ///< a platform colour, "light gray"
    void setBorder(qreal width, const QString& colorName);

    const LayerShadow& shadow() const { return m_shadow; }
    void setShadow(const LayerShadow& shadow) { assign(m_shadow, shadow); }

    /// Whether what stands out of it is cut off.
    bool clipsToBounds() const { return m_clipsToBounds; }
    void setClipsToBounds(bool clips) { assign(m_clipsToBounds, clips); }

signals:
    /// Any property of the outlet has another value.
    void changed();

protected:
    /// Sets `member` and tells it, unless it is that already.
    template<typename Value>
    void assign(Value& member, const Value& value) {
        if (member == value)
            return;
        member = value;
        emit changed();
    }

private:
    bool m_isHidden = false;
    bool m_isEnabled = true;
    qreal m_alpha = 1;
    qreal m_cornerRadius = 0;
    qreal m_borderWidth = 0;
    QString m_borderColorName;
    LayerShadow m_shadow;
    bool m_clipsToBounds = false;
};

} // namespace reelsmith
