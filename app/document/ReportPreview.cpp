#include "app/document/ReportPreview.h"

#include "app/document/ReportDocument.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintEvent>
#include <QPainter>
#include <cmath>

namespace tessivo {

namespace {

constexpr double unknownHeight = 700; // of a text that isn't laid out yet

bool readsTheSame(const ConditionReport& a, ConditionReport b) {
    // The minute is all of the date that the document shows.
    const bool sameMinute = std::floor(a.created.seconds / 60) == std::floor(b.created.seconds / 60);
    b.id = a.id;
    if (sameMinute) b.created = a.created;
    return a == b;
}

} // namespace

ReportPreview::ReportPreview(QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setMaximumWidth(sheetWidth);
}

ReportPreview::~ReportPreview() = default;

void ReportPreview::setReport(const ConditionReport& report) {
    if (m_report && readsTheSame(*m_report, report)) return;
    m_report = report;
    setAccessibleName(QStringLiteral("Condition report for ") +
                      QString::fromStdString(report.machine.displayName()));
    m_document.reset();
    if (isVisible()) layOut();
}

void ReportPreview::layOut() {
    if (m_document || !m_report) return;
    m_document = ReportDocument::make(*m_report, sheetWidth - 2 * inset);
    updateGeometry();
    update();
    announceValueChange(this);
}

QString ReportPreview::spokenValue() const {
    return m_document ? m_document->toPlainText() : QString();
}

int ReportPreview::heightForWidth(int width) const {
    const double tall =
        (m_document ? m_document->size().height() / ReportDocument::unitsPerPoint : unknownHeight) +
        2 * inset;
    return int(std::ceil(tall * std::min(width, sheetWidth) / sheetWidth));
}

QSize ReportPreview::sizeHint() const {
    return {sheetWidth, heightForWidth(sheetWidth)};
}

QSize ReportPreview::minimumSizeHint() const {
    return {sheetWidth / 3, 0};
}

void ReportPreview::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    layOut();
}

void ReportPreview::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.fillRect(event->rect(), Qt::white);
    painter.setPen(QColor(0, 0, 0, 31));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    if (!m_document) return;
    const double scale = double(width()) / sheetWidth;
    painter.scale(scale, scale);
    painter.translate(inset, inset);
    painter.scale(1.0 / ReportDocument::unitsPerPoint, 1.0 / ReportDocument::unitsPerPoint);
    QAbstractTextDocumentLayout::PaintContext context;
    // Only what is to be seen is drawn, and its text stays black on any theme.
    context.clip = painter.transform().inverted().mapRect(QRectF(event->rect()));
    context.palette.setColor(QPalette::Text, Qt::black);
    m_document->documentLayout()->draw(&painter, context);
}

} // namespace tessivo
