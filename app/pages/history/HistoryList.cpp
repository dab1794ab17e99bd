#include "app/pages/history/HistoryList.h"

#include "app/look/Metrics.h"
#include "app/look/Theme.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

namespace tessivo {

namespace {

constexpr int headerHeight = 34;
constexpr double selectedOpacity = 14; // percent
constexpr double hoverOpacity = 5;
/// Draws a row as the other lists of the window are drawn.
class RowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override {
        const bool header = index.data(HistoryRows::headerRole).toBool();
        return {Width::tileMinimum, theme().scaled(header ? headerHeight : Height::historyRow)};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (index.data(HistoryRows::headerRole).toBool())
            paintHeader(*painter, option.rect, index);
        else
            paintReport(*painter, option, index);
        painter->restore();
    }

private:
    static void drawElided(QPainter& painter, const QRect& area, TextRole role, ColorRole color,
                           const QString& text) {
        const QFont font = theme().font(role);
        painter.setFont(font);
        painter.setPen(theme().color(color));
        const QString line = QString(text).replace(QChar(u'\n'), QChar(u' '));
        painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                         QFontMetrics(font).elidedText(line, Qt::ElideRight, area.width()));
    }

    static void paintHeader(QPainter& painter, const QRect& rect, const QModelIndex& index) {
        const QRect area = rect.adjusted(Space::s, Space::xs, -Space::s, 0);
        const QString serial = index.data(HistoryRows::serialRole).toString();
        const QFontMetrics metrics(theme().font(TextRole::sidebarSection));
        // The name gives way; the serial number stays whole.
        const int serialWidth = std::min(metrics.horizontalAdvance(serial) + 2, area.width());
        const QString name = index.data(Qt::DisplayRole).toString();
        const int nameWidth = std::min(metrics.horizontalAdvance(name) + 1, area.width() - serialWidth);
        drawElided(painter, QRect(area.left(), area.top(), nameWidth, area.height()),
                   TextRole::sidebarSection, ColorRole::text2, name);
        drawElided(painter, QRect(area.left() + nameWidth, area.top(), serialWidth, area.height()),
                   TextRole::sidebarSection, ColorRole::text2, serial);
    }

    static void paintReport(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) {
        const QRectF area = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.setPen(Qt::NoPen);
        if (option.state & QStyle::State_Selected)
            painter.setBrush(theme().color(ColorRole::accent, selectedOpacity));
        else if (option.state & QStyle::State_MouseOver)
            painter.setBrush(theme().color(ColorRole::text1, hoverOpacity));
        else
            painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(area, Corner::row, Corner::row);
        if ((option.state & QStyle::State_HasFocus) && (option.state & QStyle::State_Active)) {
            painter.setPen(QPen(theme().color(ColorRole::focus), 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(area.adjusted(1, 1, -1, -1), Corner::row - 1, Corner::row - 1);
        }
        const int line = theme().lineHeight(TextRole::callout);
        QRect text = option.rect.adjusted(Space::s, 0, -Space::s, 0);
        text.setTop(option.rect.center().y() - line);
        text.setHeight(line);
        drawElided(painter, text, TextRole::headline, ColorRole::text1,
                   index.data(Qt::DisplayRole).toString());
        text.translate(0, line);
        drawElided(painter, text, TextRole::callout, ColorRole::text2,
                   index.data(HistoryRows::tallyRole).toString());
    }
};

} // namespace

HistoryList::HistoryList(QWidget* parent) : QListView(parent), m_rows(new HistoryRows(this)) {
    setAccessibleName("Saved reports");
    setModel(m_rows);
    setItemDelegate(new RowDelegate(this));
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setViewportMargins(Space::m, Space::xs, Space::m, Space::m);
    viewport()->setAutoFillBackground(false);
}

void HistoryList::setHistory(const std::vector<ConditionReport>& history) {
    // The selected report may have gone, or stand in another row, or be another of the same name.
    const auto wanted = m_selection;
    m_updating = true;
    m_rows->setHistory(history);
    setSelectedReport(wanted);
    m_updating = false;
    if (wanted) takeSelection();
}

void HistoryList::setSelectedReport(const std::optional<Uuid>& id) {
    const int row = id ? m_rows->rowOf(*id) : -1;
    if (row >= 0)
        setCurrentIndex(m_rows->index(row));
    else
        clearSelection();
}

const ConditionReport* HistoryList::selectedReport() const {
    const QModelIndexList selected = selectedIndexes();
    return selected.isEmpty() ? nullptr : m_rows->report(selected.front().row());
}

void HistoryList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    if (!m_updating) takeSelection();
}

void HistoryList::takeSelection() {
    const ConditionReport* report = selectedReport();
    m_selection = report ? std::optional(report->id) : std::nullopt;
    Q_EMIT selectionHasChanged();
}

void HistoryList::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(viewport()->mapFromGlobal(event->globalPos()));
    const ConditionReport* report = m_rows->report(index.row());
    if (!report) return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const Uuid id = report->id;
    connect(menu->addAction("Delete"), &QAction::triggered, this, [this, id] { Q_EMIT deleteRequested(id); });
    menu->popup(byKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
}

} // namespace tessivo
