#pragma once

#include <QProxyStyle>

namespace tessivo {

/// The theme on the controls that Qt draws: menus, scroll bars, tool tips, combo box lists, line edits,
/// dialog buttons. It turns the desktop's palette into the theme's own, light or dark as the desktop's is.
class ThemeStyle final : public QProxyStyle {
    Q_OBJECT
public:
    ThemeStyle();

    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
    void polish(QWidget* widget) override;

    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
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
    void drawMenuItem(const QStyleOption* option, QPainter* painter, const QWidget* widget) const;
    void drawMenuBarItem(const QStyleOption* option, QPainter* painter, const QWidget* widget) const;
    void drawPushButton(const QStyleOption* option, QPainter* painter) const;
};

} // namespace tessivo
