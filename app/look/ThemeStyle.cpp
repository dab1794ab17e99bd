#include "app/look/ThemeStyle.h"

#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"
#include "app/look/Theme.h"

#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <QWidget>

namespace tessivo {
namespace {

constexpr int menuPadding = 5;
constexpr int menuCheckColumn = 28;
constexpr int menuInset = 12;
constexpr int thumbWidth = 6;
constexpr int thumbGap = 4;
constexpr int thumbLeast = 32;

/// The application's own menu comes first and stands out.
QFont menuBarFont(const QStyleOptionMenuItem& item, const QWidget* bar) {
    QFont font = item.font;
    if (bar && !bar->actions().isEmpty() && bar->actions().constFirst()->text() == item.text)
        font.setWeight(QFont::Bold);
    return font;
}

/// The bar's ground and the hairline under it.
void fillMenuBar(QPainter& painter, const QRect& rect) {
    painter.fillRect(rect, theme().color(ColorRole::sidebar));
    painter.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), theme().divider());
}

} // namespace

ThemeStyle::ThemeStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void ThemeStyle::polish(QPalette& palette) {
    const bool dark =
        palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    palette = Theme::palette(dark);
}

void ThemeStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QMenu*>(widget)) {
        widget->setAttribute(Qt::WA_TranslucentBackground);
        widget->setWindowFlag(Qt::FramelessWindowHint);
        widget->setWindowFlag(Qt::NoDropShadowWindowHint);
    }
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_ScrollBarExtent:
        return thumbWidth + 2 * thumbGap;
    case PM_ScrollBarSliderMin:
        return thumbLeast;
    case PM_MenuPanelWidth:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return menuPadding;
    case PM_MenuBarPanelWidth:
    case PM_MenuBarVMargin:
        return 0;
    case PM_MenuBarHMargin:
        return Space::xs;
    case PM_MenuBarItemSpacing:
        return 0;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const {
    switch (hint) {
    case SH_Menu_Mask:
        if (auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(data); mask && option) {
            QPainterPath shape;
            shape.addRoundedRect(option->rect, Corner::menu - 1, Corner::menu - 1);
            mask->region = QRegion(shape.toFillPolygon().toPolygon());
            return true;
        }
        return false;
    case SH_ScrollBar_LeftClickAbsolutePosition:
        return false;
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
    case SH_ScrollBar_Transient:
        return false;
    case SH_UnderlineShortcut:
        return false;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QIcon ThemeStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    // A menu bar asks for the mark of what doesn't fit when it is made: the style's own is a picture file.
    if (icon == SP_ToolBarHorizontalExtensionButton) return symbolIcon(QStringLiteral("chevron.right"));
    return QProxyStyle::standardIcon(icon, option, widget);
}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    painter->save();
    switch (element) {
    case PE_PanelMenu:
        paintRounded(*painter, option->rect, Corner::menu, theme().color(ColorRole::card),
                     theme().color(ColorRole::controlBorder));
        break;
    case PE_FrameMenu:
        break;
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
        paintRounded(*painter, option->rect, Corner::checkbox, Qt::transparent,
                     theme().color(ColorRole::focus), 2);
        break;
    default:
        painter->restore();
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    painter->restore();
}

void ThemeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    painter->save();
    switch (element) {
    case CE_MenuItem:
        drawMenuItem(option, painter, widget);
        break;
    case CE_MenuBarItem:
        drawMenuBarItem(option, painter, widget);
        break;
    case CE_MenuBarEmptyArea:
        fillMenuBar(*painter, option->rect);
        break;
    case CE_MenuEmptyArea:
    case CE_MenuHMargin:
    case CE_MenuVMargin:
        break;
    case CE_PushButtonBevel:
        drawPushButton(option, painter);
        break;
    case CE_PushButtonLabel:
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            const bool prominent = button->features & QStyleOptionButton::DefaultButton;
            painter->setFont(theme().font(prominent ? TextRole::controlStrong : TextRole::control));
            painter->setOpacity(option->state & State_Enabled ? 1 : 0.45);
            painter->setPen(theme().color(prominent ? ColorRole::onAccent : ColorRole::text1));
            painter->drawText(option->rect, Qt::AlignCenter | Qt::TextHideMnemonic, button->text);
        }
        break;
    default:
        painter->restore();
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    painter->restore();
}

void ThemeStyle::drawPushButton(const QStyleOption* option, QPainter* painter) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const bool prominent = button && button->features & QStyleOptionButton::DefaultButton;
    const bool pressed = option->state & State_Sunken;
    const bool hovered = option->state & State_MouseOver;
    painter->setOpacity(option->state & State_Enabled ? 1 : 0.45);
    QRectF box = option->rect;
    if (option->state & State_HasFocus) {
        paintRounded(*painter, box, Corner::button, Qt::transparent, theme().color(ColorRole::focus), 2);
        box.adjust(3, 3, -3, -3);
    }
    const ColorRole fill = prominent ? (pressed   ? ColorRole::accentFillPressed
                                        : hovered ? ColorRole::accentFillHover
                                                  : ColorRole::accentFill)
                                     : (pressed   ? ColorRole::controlPressed
                                        : hovered ? ColorRole::controlHover
                                                  : ColorRole::control);
    paintRounded(*painter, box, Corner::button - (box.top() > option->rect.top() ? 2 : 0),
                 theme().color(fill), prominent ? QColor() : theme().color(ColorRole::controlBorder));
}

void ThemeStyle::drawMenuBarItem(const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (!item) return;
    fillMenuBar(*painter, option->rect);
    if (option->state & (State_Selected | State_Sunken))
        paintRounded(*painter, option->rect.adjusted(0, 3, 0, -3), Corner::segment,
                     theme().color(ColorRole::text1, 9), QColor());
    painter->setFont(menuBarFont(*item, widget));
    painter->setPen(theme().color(ColorRole::text1, option->state & State_Enabled ? 100 : 45));
    painter->drawText(option->rect, Qt::AlignCenter | Qt::TextHideMnemonic, item->text);
}

void ThemeStyle::drawMenuItem(const QStyleOption* option, QPainter* painter, const QWidget*) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (!item) return;
    const QRect rect = option->rect;
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        painter->fillRect(
            QRect(rect.left() + menuPadding, rect.center().y(), rect.width() - 2 * menuPadding, 1),
            theme().divider());
        return;
    }
    const bool enabled = option->state & State_Enabled;
    if (enabled && option->state & State_Selected)
        paintRounded(*painter, rect, Corner::segment, theme().color(ColorRole::accent, 14), QColor());
    const QColor words = theme().color(ColorRole::text1, enabled ? 100 : 45);
    const bool checks = item->menuHasCheckableItems || item->maxIconWidth > 0;
    const int side = theme().scaled(14);
    const QRect mark(rect.left() + 6, rect.center().y() - side / 2, side, side);
    if (item->checked)
        drawSymbol(*painter, mark, QStringLiteral("checkmark"), words);
    else if (!item->icon.isNull())
        item->icon.paint(painter, mark, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
    painter->setFont(item->font);
    painter->setPen(words);
    const QRect inner = rect.adjusted(checks ? theme().scaled(menuCheckColumn) : menuInset, 0, -menuInset, 0);
    const QStringList parts = item->text.split(QLatin1Char('\t'));
    painter->drawText(inner, Qt::AlignVCenter | Qt::AlignLeading | Qt::TextHideMnemonic | Qt::TextSingleLine,
                      parts.value(0));
    painter->setPen(theme().color(ColorRole::text2, enabled ? 100 : 45));
    painter->drawText(inner, Qt::AlignVCenter | Qt::AlignTrailing | Qt::TextSingleLine, parts.value(1));
    if (item->menuItemType == QStyleOptionMenuItem::SubMenu)
        drawSymbol(*painter, QRect(rect.right() - menuInset - side / 2, mark.top(), side, side),
                   QStringLiteral("chevron.right"), words);
}

QSize ThemeStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
    switch (type) {
    case CT_MenuItem: {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (!item) break;
        if (item->menuItemType == QStyleOptionMenuItem::Separator)
            return {2 * menuInset, 2 * menuPadding + 1};
        const bool checks = item->menuHasCheckableItems || item->maxIconWidth > 0;
        const QFontMetrics metrics(item->font);
        const QStringList parts = item->text.split(QLatin1Char('\t'));
        int width = metrics.size(Qt::TextHideMnemonic, parts.value(0)).width() + menuInset +
                    (checks ? theme().scaled(menuCheckColumn) : menuInset);
        if (parts.size() > 1) width += Space::page + metrics.horizontalAdvance(parts.at(1));
        if (item->menuItemType == QStyleOptionMenuItem::SubMenu) width += Space::page;
        return {width, theme().scaled(Height::menuItem)};
    }
    case CT_MenuBarItem: {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (!item) break;
        const QFontMetrics metrics(menuBarFont(*item, widget));
        return {metrics.size(Qt::TextHideMnemonic, item->text).width() + 2 * Space::m,
                theme().scaled(Height::menuBar)};
    }
    case CT_PushButton:
        return {std::max(size.width() + 2 * Space::l + 8, theme().scaled(76)),
                theme().scaled(Height::control) + 4};
    case CT_LineEdit:
        return {size.width(), std::max(size.height(), theme().scaled(Height::field))};
    default:
        break;
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

QRect ThemeStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                 const QWidget* widget) const {
    const auto* bar =
        control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
    if (!bar) return QProxyStyle::subControlRect(control, option, part, widget);
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
    const auto* bar =
        control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
    if (!bar) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    if (bar->maximum <= bar->minimum) return;
    const bool upright = bar->orientation == Qt::Vertical;
    QRectF thumb = subControlRect(control, option, SC_ScrollBarSlider, widget);
    if (upright)
        thumb = QRectF(thumb.right() - thumbGap - thumbWidth, thumb.top(), thumbWidth, thumb.height());
    else
        thumb = QRectF(thumb.left(), thumb.bottom() - thumbGap - thumbWidth, thumb.width(), thumbWidth);
    const bool lively = option->state & State_MouseOver || option->activeSubControls & SC_ScrollBarSlider;
    painter->save();
    paintRounded(*painter, thumb, thumbWidth / 2.0, theme().color(ColorRole::text1, lively ? 45 : 26),
                 QColor());
    painter->restore();
}

} // namespace tessivo
