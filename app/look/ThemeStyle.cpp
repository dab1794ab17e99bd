#include "app/look/ThemeStyle.h"

#include "app/look/FocusShape.h"
#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"

#include <QFocusFrame>
#include <QStyleOption>

namespace tessivo {
namespace {

constexpr int thumbWidth = 6;
constexpr int thumbGap = 4;
constexpr int thumbLeast = 32;
constexpr double ringWidth = 2;
constexpr int ringReach = 4; // a gap between the shape and its ring, and the ring itself
constexpr int comboPadding = 13;
constexpr int comboArrowsInset = 8;

bool isOn(const QStyleOption& option, QStyle::StateFlag state) {
    return option.state.testFlag(state);
}

/// The ring around the shape of a widget, which the frame surrounds by its reach.
void drawFocusFrame(QPainter& painter, const QWidget* ringed) {
    if (!ringed) return;
    const auto* shape = dynamic_cast<const FocusShape*>(ringed);
    const QRectF part = shape ? shape->focusShapeRect() : QRectF(ringed->rect());
    const QRect ring = part.translated(ringReach, ringReach)
                           .adjusted(-ringReach, -ringReach, ringReach, ringReach)
                           .toAlignedRect();
    paintRounded(painter, ring, (shape ? shape->focusShapeCorner() : 0) + ringReach, {},
                 theme().color(ColorRole::focus), ringWidth);
}

void drawPushButton(const QStyleOption& option, QPainter& painter) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    const bool prominent = button && button->features & QStyleOptionButton::DefaultButton;
    QRectF box = option.rect;
    double corner = Corner::button;
    if (isOn(option, QStyle::State_HasFocus)) {
        paintRounded(painter, box, corner, {}, theme().color(ColorRole::focus), ringWidth);
        box.adjust(3, 3, -3, -3);
        corner -= 2;
    }
    paintRounded(
        painter, box, corner,
        controlFill(prominent, isOn(option, QStyle::State_Sunken), isOn(option, QStyle::State_MouseOver)),
        prominent ? QColor() : theme().color(ColorRole::controlBorder));
}

void drawPushButtonLabel(const QStyleOptionButton& button, QPainter& painter) {
    const bool prominent = button.features & QStyleOptionButton::DefaultButton;
    painter.setFont(theme().font(prominent ? TextRole::controlStrong : TextRole::control));
    painter.setPen(theme().color(prominent ? ColorRole::onAccent : ColorRole::text1));
    painter.drawText(button.rect, Qt::AlignCenter | Qt::TextHideMnemonic, button.text);
}

/// The arrows at the end of a combo box.
QRect comboArrows(const QStyleOptionComboBox& box) {
    const double side = theme().scaled(SymbolSize::button);
    return QRectF(box.rect.width() - comboArrowsInset - side, (box.rect.height() - side) / 2, side, side)
        .toRect();
}

void drawComboBox(const QStyleOptionComboBox& box, QPainter& painter) {
    paintRounded(
        painter, box.rect, Corner::button,
        controlFill(false, false, isOn(box, QStyle::State_Enabled) && isOn(box, QStyle::State_MouseOver)),
        theme().color(ColorRole::controlBorder));
    drawSymbol(painter, QStyle::visualRect(box.direction, box.rect, comboArrows(box)),
               QStringLiteral("chevron.up.chevron.down"), theme().color(ColorRole::text2));
}

void drawComboBoxLabel(const QStyleOptionComboBox& box, QPainter& painter) {
    QRect room(comboPadding, 0, comboArrows(box).left() - comboPadding - 4, box.rect.height());
    if (!box.currentIcon.isNull()) {
        const QRect icon(room.left(), (room.height() - box.iconSize.height()) / 2, box.iconSize.width(),
                         box.iconSize.height());
        box.currentIcon.paint(&painter, QStyle::visualRect(box.direction, box.rect, icon));
        room.setLeft(icon.right() + Space::xs);
    }
    painter.setFont(theme().font(TextRole::control));
    painter.setPen(theme().color(ColorRole::text1));
    painter.drawText(QStyle::visualRect(box.direction, box.rect, room),
                     Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                     QFontMetricsF(painter.font()).elidedText(box.currentText, Qt::ElideRight, room.width()));
}

void drawProgress(const QStyleOptionProgressBar& bar, QPainter& painter) {
    const double range = double(bar.maximum) - bar.minimum;
    paintBar(painter, bar.rect, range > 0 ? (bar.progress - bar.minimum) / range : 0,
             theme().color(ColorRole::text1, 12), theme().color(ColorRole::accent));
}

} // namespace

void ThemeStyle::polish(QPalette& palette) {
    const bool dark =
        palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    palette = Theme::palette(dark);
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_ScrollBarExtent:
    case PM_ScrollView_ScrollBarOverlap: // the thumb lies over the contents, so that nothing shifts when it
                                         // comes
        return thumbWidth + 2 * thumbGap;
    case PM_ScrollBarSliderMin:
        return thumbLeast;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin: {
        // Item views measure by it too; a frame asks with its option alone.
        const QObject* asking = widget || !option ? widget : option->styleObject;
        if (!asking || qobject_cast<const QFocusFrame*>(asking)) return ringReach;
        break;
    }
    default:
        break;
    }
    return MenuStyle::pixelMetric(metric, option, widget);
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const {
    switch (hint) {
    case SH_FocusFrame_AboveWidget:
        return true;
    case SH_FocusFrame_Mask: // the ring may lie within its widget
    case SH_ScrollBar_LeftClickAbsolutePosition:
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
    case SH_ScrollBar_Transient:
    case SH_UnderlineShortcut:
        return false;
    default:
        return MenuStyle::styleHint(hint, option, widget, data);
    }
}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    painter->save();
    switch (element) {
    case PE_PanelTipLabel:
        painter->fillRect(option->rect, theme().color(ColorRole::card));
        painter->setPen(theme().color(ColorRole::controlBorder));
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        break;
    case PE_PanelLineEdit:
    case PE_FrameLineEdit: {
        const bool focused = option->state & State_HasFocus;
        if (element == PE_PanelLineEdit || focused)
            paintRounded(*painter, option->rect, Corner::field, theme().color(ColorRole::field),
                         theme().color(focused ? ColorRole::focus : ColorRole::fieldBorder), focused ? 2 : 1);
        break;
    }
    case PE_FrameFocusRect:
        paintRounded(*painter, option->rect, Corner::checkbox, {}, theme().color(ColorRole::focus),
                     ringWidth);
        break;
    default:
        MenuStyle::drawPrimitive(element, option, painter, widget);
    }
    painter->restore();
}

void ThemeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const auto* progress = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
    const auto* frame = qobject_cast<const QFocusFrame*>(widget);
    painter->save();
    if (element == CE_FocusFrame && frame) {
        drawFocusFrame(*painter, frame->widget());
    } else if (element == CE_PushButtonBevel) {
        painter->setOpacity(opacityOf(isOn(*option, State_Enabled)));
        drawPushButton(*option, *painter);
    } else if (element == CE_PushButtonLabel && button) {
        painter->setOpacity(opacityOf(isOn(*option, State_Enabled)));
        drawPushButtonLabel(*button, *painter);
    } else if (element == CE_ComboBoxLabel && combo && !combo->editable) {
        painter->setOpacity(opacityOf(isOn(*option, State_Enabled)));
        drawComboBoxLabel(*combo, *painter);
    } else if (element == CE_ProgressBar && progress) {
        drawProgress(*progress, *painter);
    } else {
        MenuStyle::drawControl(element, option, painter, widget);
    }
    painter->restore();
}

QSize ThemeStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
    switch (type) {
    case CT_PushButton:
        return {std::max(size.width() + 2 * Space::l + 8, theme().scaled(76)),
                theme().scaled(Height::control) + 4};
    case CT_ComboBox:
        return {size.width() + 2 * comboPadding + theme().scaled(SymbolSize::button) + comboArrowsInset,
                std::max(size.height(), theme().scaled(Height::control))};
    case CT_LineEdit:
        return {size.width(), std::max(size.height(), theme().scaled(Height::field))};
    default:
        return MenuStyle::sizeFromContents(type, option, size, widget);
    }
}

QRect ThemeStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                 const QWidget* widget) const {
    const auto* bar =
        control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
    if (!bar) return MenuStyle::subControlRect(control, option, part, widget);
    const bool upright = bar->orientation == Qt::Vertical;
    const QRect rect = bar->rect;
    const int track = (upright ? rect.height() : rect.width()) - 2 * thumbGap;
    const qint64 range = qint64(bar->maximum) - bar->minimum;
    int length = track;
    if (range > 0)
        length = std::clamp(int(qint64(bar->pageStep) * track / (range + bar->pageStep)),
                            std::min(thumbLeast, track), track);
    const int start = thumbGap + sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                                         track - length, bar->upsideDown);
    const auto stretch = [&](int from, int size) {
        return upright ? QRect(rect.left(), rect.top() + from, rect.width(), size)
                       : QRect(rect.left() + from, rect.top(), size, rect.height());
    };
    switch (part) {
    case SC_ScrollBarSlider:
        return stretch(start, length);
    case SC_ScrollBarGroove:
        return stretch(thumbGap, track);
    case SC_ScrollBarSubPage:
        return stretch(thumbGap, start - thumbGap);
    case SC_ScrollBarAddPage:
        return stretch(start + length, track + thumbGap - start - length);
    default:
        return {};
    }
}

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    painter->save();
    if (control == CC_ScrollBar && bar) {
        drawScrollBar(*bar, *painter, widget);
    } else if (control == CC_ComboBox && combo && !combo->editable) {
        painter->setOpacity(opacityOf(isOn(*option, State_Enabled)));
        drawComboBox(*combo, *painter);
    } else {
        MenuStyle::drawComplexControl(control, option, painter, widget);
    }
    painter->restore();
}

void ThemeStyle::drawScrollBar(const QStyleOptionSlider& bar, QPainter& painter,
                               const QWidget* widget) const {
    if (bar.maximum <= bar.minimum) return;
    QRectF thumb = subControlRect(CC_ScrollBar, &bar, SC_ScrollBarSlider, widget);
    if (bar.orientation == Qt::Vertical)
        thumb = QRectF(thumb.right() - thumbGap - thumbWidth, thumb.top(), thumbWidth, thumb.height());
    else
        thumb = QRectF(thumb.left(), thumb.bottom() - thumbGap - thumbWidth, thumb.width(), thumbWidth);
    const bool lively = isOn(bar, State_MouseOver) || bar.activeSubControls & SC_ScrollBarSlider;
    paintRounded(painter, thumb, thumbWidth / 2.0, theme().color(ColorRole::text1, lively ? 45 : 26));
}

} // namespace tessivo
