#pragma once

#include "app/look/Accessible.h"
#include "app/look/Metrics.h"
#include "app/look/Theme.h"

#include <QWidget>

namespace tessivo {

/// Words on a round fill, with or without a symbol before them: what badges, chips and tags are painted by.
class Capsule : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    /// Its type and measures, in logical pixels at text scale 1; `gap` stands between symbol and words.
    struct Shape {
        TextRole type;
        int symbol, gap, height;
    };
    static constexpr Shape badge{TextRole::badge, SymbolSize::badge, 5, Height::badge};
    static constexpr Shape tag{TextRole::badge, SymbolSize::glyph, 6, Height::badge};
    static constexpr Shape lowTag{TextRole::badge, SymbolSize::glyph, 6, Height::lowTag};
    static constexpr Shape chip{TextRole::control, SymbolSize::chip, 6, Height::chip};

    struct Look {
        QString symbol; ///< empty: none, and no room for one
        QString text;   ///< also what a screen reader says
        ColorRole ink, symbolInk;
        ColorRole fill;
        int fillPercent; ///< opacity
    };

    Capsule(const Shape& shape, Look look, QWidget* parent = nullptr);

    void setLook(Look look);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    QAccessible::Role spokenRole() const override { return QAccessible::StaticText; }
    QString spokenName() const override { return m_look.text; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    int textLeft() const;

    Shape m_shape;
    Look m_look;
};

} // namespace tessivo
