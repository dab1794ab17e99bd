#include "app/window/Sidebar.h"

#include "app/controls/Divider.h"
#include "app/controls/Panel.h"
#include "app/controls/ProgressBar.h"
#include "app/controls/TextLabel.h"
#include "app/layout/ScrollColumn.h"
#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/model/QtText.h"
#include "kit/rules/Rules.h"

#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

namespace tessivo {

namespace {

constexpr int sectionGap = 14; // from a row to the next section's header
constexpr int headerInset = 8; // a header stands over its rows' symbols
constexpr int footInset = 18;  // the progress, in line with the headers

} // namespace

/// The progress at the foot, read as one element.
class ProgressFoot final : public Column, public AccessibleTraits {
public:
    explicit ProgressFoot(QWidget* parent = nullptr)
        : Column(parent),
          m_bar(new ProgressBar),
          m_caption(new TextLabel({}, TextRole::progressCaption, ColorRole::text2)) {
        column().setContentsMargins(footInset, Space::l, footInset, Space::l);
        add(m_bar);
        add(m_caption, Space::xs);
    }

    void setProgress(int done, int total) {
        m_bar->setProgress(done, total);
        const QString words = QString("%1 of %2 done").arg(done).arg(total);
        if (words == m_caption->text()) return;
        m_caption->setText(words);
        setAccessibleName(words);
        announceNameChange(this);
    }

    QAccessible::Role spokenRole() const override { return QAccessible::ProgressBar; }
    bool isOneElement() const override { return true; }

private:
    ProgressBar* m_bar;
    TextLabel* m_caption;
};

Sidebar::Sidebar(AppModel& model, QWidget* parent)
    : QWidget(parent), m_model(model), m_list(new RowList("Pages")), m_foot(new ProgressFoot) {
    addRow(Page::overview);
    addSection("Tests");
    for (const Page page : AppModel::testPages(std::nullopt))
        addRow(page, m_rows.size() == 1 ? Space::xs : 0);
    addSection("Report");
    addRow(Page::report, Space::xs);
    addRow(Page::pickup);
    addRow(Page::history);
    addRow(Page::handover);

    auto* scroll = new ScrollColumn(nullptr, QWIDGETSIZE_MAX, Space::m);
    scroll->add(m_list);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 1, 0);
    layout->setSpacing(0);
    layout->addWidget(scroll, 1);
    layout->addWidget(new Divider);
    layout->addWidget(m_foot);

    connect(m_list, &RowList::chosen, this, [this](SidebarRow* chosen) {
        for (const auto& [page, row] : m_rows)
            if (row == chosen) m_model.setPage(page);
        // The model is silent where the page was this one already.
        followPage();
    });
    connect(&m_model, &AppModel::stateChanged, this, &Sidebar::followState);
    connect(&m_model, &AppModel::pageChanged, this, &Sidebar::followPage);
    followState();
    followPage();
}

void Sidebar::addRow(Page page, int gapAbove) {
    auto* row = new SidebarRow(qt(title(page)), qt(symbol(page)));
    row->installEventFilter(this);
    m_rows[page] = row;
    m_list->addRow(row, gapAbove);
}

void Sidebar::addSection(const QString& title) {
    auto* header = new Column;
    header->column().setContentsMargins(headerInset, 0, headerInset, 0);
    auto* label = new TextLabel(title, TextRole::sidebarSection, ColorRole::text3);
    label->setHeading(true);
    header->add(label);
    m_list->addHeader(header, sectionGap);
}

void Sidebar::followState() {
    const auto shown = AppModel::testPages(m_model.state().kind());
    for (const auto& [page, row] : m_rows) {
        if (!tests(page).empty() && page != Page::overview)
            row->setVisible(std::ranges::find(shown, page) != shown.end());
        if (!row->isHidden()) row->setStatus(m_model.status(page));
    }
    m_foot->setProgress(int(m_model.doneCount()), int(m_model.results().size()));
    followPage();
}

void Sidebar::followPage() {
    SidebarRow* row = nullptr;
    if (const auto page = m_model.page()) row = m_rows.at(*page);
    m_list->setCurrent(row && !row->isHidden() ? row : nullptr);
}

void Sidebar::takeFocus() {
    const auto row = m_rows.find(m_model.page().value_or(Page::overview));
    SidebarRow* target = m_list->current() ? m_list->current() : row->second;
    target->setFocus(Qt::OtherFocusReason);
}

bool Sidebar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        const auto* press = static_cast<QMouseEvent*>(event);
        const auto* row = qobject_cast<SidebarRow*>(watched);
        // As in the platform's lists: a click with the command key takes the selection back.
        if (row && row->isChecked() && press->button() == Qt::LeftButton &&
            press->modifiers().testFlag(Qt::ControlModifier)) {
            m_model.setPage(std::nullopt);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

QSize Sidebar::sizeHint() const {
    return {theme().scaled(Width::sidebar), 0};
}

QSize Sidebar::minimumSizeHint() const {
    return {theme().scaled(Width::sidebarMinimum), 0};
}

void Sidebar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), theme().color(ColorRole::sidebar));
    paintHairline(painter, QRect(width() - 1, 0, 1, height()));
}

} // namespace tessivo
