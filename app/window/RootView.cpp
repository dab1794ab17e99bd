#include "app/window/RootView.h"

#include "app/look/Metrics.h"
#include "app/look/Theme.h"
#include "app/pages/Pages.h"
#include "app/pages/report/ReportPage.h"
#include "app/window/Commands.h"
#include "app/window/Sidebar.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>

namespace tessivo {

namespace {

constexpr QSize firstSize(1180, 780);
constexpr QSize smallestDetail(620, 520);

} // namespace

/// Holds one page at full size. It has no layout: a page never asks the window for more room.
class RootView::Detail final : public QWidget {
public:
    Detail() { setMinimumSize(smallestDetail); }

    void hold(QWidget* view) {
        m_view = view;
        m_view->setGeometry(rect());
        m_view->show();
    }

    QSize sizeHint() const override { return smallestDetail; }

protected:
    void resizeEvent(QResizeEvent*) override {
        if (m_view) m_view->setGeometry(rect());
    }
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect(), theme().color(ColorRole::window));
    }

private:
    QPointer<QWidget> m_view;
};

RootView::RootView(const PageContext& context, Updater& updater, QWidget* parent)
    : QMainWindow(parent), m_context(context), m_sidebar(new Sidebar(context.model)), m_detail(new Detail) {
    setWindowTitle("Tessivo");
    setContextMenuPolicy(Qt::NoContextMenu);
    new Commands(*this, m_context, updater);

    auto* body = new QWidget;
    auto* layout = new QHBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_sidebar->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    layout->addWidget(m_sidebar);
    layout->addWidget(m_detail, 1);
    setCentralWidget(body);

    connect(&m_context.model, &AppModel::pageChanged, this, &RootView::showPage);
    connect(&theme(), &Theme::changed, this, &RootView::fitToTheme);
    fitToTheme();
    const QSize room = screen()->availableSize();
    resize(firstSize.boundedTo(room).expandedTo(minimumSize()));
    showPage();
}

RootView::~RootView() = default;

void RootView::fitToTheme() {
    // A larger system font asks for a wider sidebar; the page beside it keeps its own least size.
    m_sidebar->updateGeometry();
    setMinimumSize(theme().scaled(Width::sidebarMinimum) + smallestDetail.width(),
                   smallestDetail.height() + menuBar()->sizeHint().height());
}

void RootView::showPage() {
    const Page page = m_context.model.page().value_or(Page::overview);
    if (m_view && page == m_shown) return;
    if (m_view) {
        // Otherwise Qt would give the focus to some other control.
        if (m_view->isAncestorOf(focusWidget())) m_sidebar->takeFocus();
        m_view->hide();
        m_view->deleteLater();
    }
    m_shown = page;
    m_view = makePage(page, m_context, m_detail);
    m_detail->hold(m_view);
}

ConditionReport RootView::report() const {
    auto* page = qobject_cast<ReportPage*>(m_view);
    return page ? page->shownReport() : m_context.model.makeReport();
}

void RootView::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (m_launched) return;
    m_launched = true;
    // No control has the keyboard's focus before a person gives it to one.
    setFocus(Qt::OtherFocusReason);
    // Once, and after the window has come up.
    QMetaObject::invokeMethod(this, &RootView::readWhatIsMissing, Qt::QueuedConnection);
}

void RootView::readWhatIsMissing() {
    AppModel& model = m_context.model;
    if (!model.state().battery) model.readBattery();
    if (!model.state().enrollmentChecked) model.readEnrollment();
}

void RootView::closeEvent(QCloseEvent* event) {
    event->accept();
    Q_EMIT closed();
}

} // namespace tessivo
