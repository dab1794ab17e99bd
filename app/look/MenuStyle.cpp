#include "app/look/MenuStyle.h"

#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"

#include <QMenu>
#include <QPainterPath>
#include <QStyleOption>

namespace tessivo {
namespace {

constexpr int padding = 5;
constexpr int checkColumn = 28;
constexpr int inset = 12;

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
    paintHairline(painter, QRect(rect.left(), rect.bottom(), rect.width(), 1));
}

void drawMenuBarItem(const QStyleOptionMenuItem& item, QPainter& painter, const QWidget* bar) {
    fillMenuBar(painter, item.rect);
    if (item.state & (QStyle::State_Selected | QStyle::State_Sunken))
        paintRounded(painter, item.rect.adjusted(0, 3, 0, -3), Corner::segment,
                     theme().color(ColorRole::text1, 9));
    painter.setFont(menuBarFont(item, bar));
    painter.setPen(theme().color(ColorRole::text1, item.state & QStyle::State_Enabled ? 100 : 45));
    painter.drawText(item.rect, Qt::AlignCenter | Qt::TextHideMnemonic, item.text);
}

void drawMenuItem(const QStyleOptionMenuItem& item, QPainter& painter) {
    const QRect rect = item.rect;
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        paintHairline(painter,
                      QRect(rect.left() + padding, rect.center().y(), rect.width() - 2 * padding, 1));
        return;
    }
    const bool enabled = item.state & QStyle::State_Enabled;
    if (enabled && item.state & QStyle::State_Selected)
        paintRounded(painter, rect, Corner::segment, theme().color(ColorRole::accent, 14));
    const QColor words = theme().color(ColorRole::text1, enabled ? 100 : 45);
    const bool checks = item.menuHasCheckableItems || item.maxIconWidth > 0;
    const int side = theme().scaled(14);
    const QRect mark(rect.left() + 6, rect.center().y() - side / 2, side, side);
    if (item.checked)
        drawSymbol(painter, mark, QStringLiteral("checkmark"), words);
    else if (!item.icon.isNull())
        item.icon.paint(&painter, mark, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
    painter.setFont(item.font);
    painter.setPen(words);
    const QRect inner = rect.adjusted(checks ? theme().scaled(checkColumn) : inset, 0, -inset, 0);
    const QStringList parts = item.text.split(QLatin1Char('\t'));
    painter.drawText(inner, Qt::AlignVCenter | Qt::AlignLeading | Qt::TextHideMnemonic | Qt::TextSingleLine,
                     parts.value(0));
    painter.setPen(theme().color(ColorRole::text2, enabled ? 100 : 45));
    painter.drawText(inner, Qt::AlignVCenter | Qt::AlignTrailing | Qt::TextSingleLine, parts.value(1));
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu)
        drawSymbol(painter, QRect(rect.right() - inset - side / 2, mark.top(), side, side),
                   QStringLiteral("chevron.right"), words);
}

QSize menuItemSize(const QStyleOptionMenuItem& item) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator) return {2 * inset, 2 * padding + 1};
    const bool checks = item.menuHasCheckableItems || item.maxIconWidth > 0;
    const QFontMetrics metrics(item.font);
    const QStringList parts = item.text.split(QLatin1Char('\t'));
    int width = metrics.size(Qt::TextHideMnemonic, parts.value(0)).width() + inset +
                (checks ? theme().scaled(checkColumn) : inset);
    if (parts.size() > 1) width += Space::page + metrics.horizontalAdvance(parts.at(1));
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) width += Space::page;
    return {width, theme().scaled(Height::menuItem)};
}

} // namespace

MenuStyle::MenuStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void MenuStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QMenu*>(widget)) {
        widget->setAttribute(Qt::WA_TranslucentBackground);
        widget->setWindowFlag(Qt::FramelessWindowHint);
        widget->setWindowFlag(Qt::NoDropShadowWindowHint);
    }
}

QIcon MenuStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    // A menu bar asks for the mark of what doesn't fit when it is made: the style's own is a picture file.
    if (icon == SP_ToolBarHorizontalExtensionButton) return symbolIcon(QStringLiteral("chevron.right"));
    return QProxyStyle::standardIcon(icon, option, widget);
}

int MenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return padding;
    case PM_MenuPanelWidth:
    case PM_MenuBarPanelWidth:
    case PM_MenuBarVMargin:
    case PM_MenuBarItemSpacing:
        return 0;
    case PM_MenuBarHMargin:
        return Space::xs;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int MenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const {
    if (hint != SH_Menu_Mask) return QProxyStyle::styleHint(hint, option, widget, data);
    auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(data);
    if (!mask || !option) return false;
    QPainterPath shape;
    shape.addRoundedRect(option->rect, Corner::menu - 1, Corner::menu - 1);
    mask->region = QRegion(shape.toFillPolygon().toPolygon());
    return true;
}

void MenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    if (element == PE_PanelMenu) {
        painter->save();
        paintRounded(*painter, option->rect, Corner::menu, theme().color(ColorRole::card),
                     theme().color(ColorRole::controlBorder));
        painter->restore();
    } else if (element != PE_FrameMenu) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    painter->save();
    switch (element) {
    case CE_MenuItem:
        if (item) drawMenuItem(*item, *painter);
        break;
    case CE_MenuBarItem:
        if (item) drawMenuBarItem(*item, *painter, widget);
        break;
    case CE_MenuBarEmptyArea:
        fillMenuBar(*painter, option->rect);
        break;
    case CE_MenuEmptyArea:
    case CE_MenuHMargin:
    case CE_MenuVMargin:
        break;
    default:
        QProxyStyle::drawControl(element, option, painter, widget);
    }
    painter->restore();
}

QSize MenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (item && type == CT_MenuItem) return menuItemSize(*item);
    if (item && type == CT_MenuBarItem)
        return {QFontMetrics(menuBarFont(*item, widget)).size(Qt::TextHideMnemonic, item->text).width() +
                    2 * Space::m,
                theme().scaled(Height::menuBar)};
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

} // namespace tessivo
