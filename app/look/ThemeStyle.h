#pragma once

#include "app/look/MenuStyle.h"

class QStyleOptionSlider;

namespace tessivo {

/// The theme on the controls that Qt draws: menus, scroll bars, tool tips, combo boxes, progress, line edits,
/// dialog buttons, and the focus ring around the shape that a widget names (`FocusShape`). It turns the
/// desktop's palette into the theme's own, light or dark as the desktop's is.
class ThemeStyle final : public MenuStyle {
    Q_OBJECT
public:
    using MenuStyle::polish;
    void polish(QPalette& palette) override;

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;

private:
    void drawScrollBar(const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget) const;
};

} // namespace tessivo
