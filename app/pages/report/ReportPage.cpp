#include "app/pages/report/ReportPage.h"

#include "app/controls/Button.h"
#include "app/controls/Divider.h"
#include "app/controls/GrowingTextField.h"
#include "app/controls/Panel.h"
#include "app/controls/TextLabel.h"
#include "app/layout/ScrollColumn.h"
#include "app/model/QtText.h"
#include "app/pages/shared/ReportActions.h"
#include "app/pages/shared/SheetView.h"
#include "app/pages/writeup/WriteUpSheet.h"
#include "kit/listing/Strings.h"

namespace tessivo {

namespace {

constexpr int dividerWidth = 1;
constexpr int leastControls = 280;
constexpr int messageLines = 2;
constexpr std::chrono::milliseconds frame(16);

} // namespace

ReportPage::ReportPage(const PageContext& context, QWidget* parent)
    : QWidget(parent),
      m_context(context),
      m_sheet(new SheetView(this)),
      m_divider(new Divider(this)),
      m_controls(new ScrollColumn(this, QWIDGETSIZE_MAX, Space::xxxl)),
      m_tally(new TextLabel({}, TextRole::tally)),
      m_unfinished(new TextLabel("Unfinished tests show as not run. You can make the report any time, but "
                                 "buyers trust a complete one.",
                                 TextRole::body, ColorRole::text2)),
      m_notes(new GrowingTextField),
      m_message(new TextLabel({}, TextRole::callout, ColorRole::text2)) {
    makeControls();
    AppModel& model = m_context.model;
    connect(&model, &AppModel::stateChanged, this, &ReportPage::follow);
    connect(&model, &AppModel::notesChanged, this, &ReportPage::follow);
    connect(&model, &AppModel::messageChanged, this, &ReportPage::showMessage);
    connect(&model, &AppModel::showWriteUpChanged, this, &ReportPage::showWriteUp);
    connect(m_notes, &GrowingTextField::textEdited, this,
            [this](const QString& text) { m_context.model.setNotes(text.toStdString()); });
    showMessage();
}

ReportPage::~ReportPage() {
    // The sheet stands in the window and would outlive its page.
    if (!m_writeUp) return;
    disconnect(&m_context.model, nullptr, this, nullptr);
    m_context.model.setShowWriteUp(false);
    delete m_writeUp;
}

void ReportPage::makeControls() {
    auto* heading = new TextLabel("Report", TextRole::pageTitle);
    heading->setHeading(true);
    m_controls->add(heading);
    m_controls->add(m_tally, Space::xxs);
    m_controls->add(m_unfinished, Space::xs);

    auto* notes = new TextLabel("Your notes", TextRole::headline);
    notes->setHeading(true);
    m_notes->setFixedTextHeight(Height::notes);
    m_notes->setAccessibleName("Notes for the report");
    m_controls->add(notes, Space::xl);
    m_controls->add(m_notes, Space::xs);
    m_controls->add(new TextLabel("Marks, what's in the box, battery or anything else to mention.",
                                  TextRole::callout, ColorRole::text2),
                    Space::xs);
    m_controls->add(new Divider, Space::xl);

    const auto words = [](const char* key) { return qt(Strings::tr(key)); };
    auto* writeUp =
        new Button(words("Write Listing Description…"), "square.and.pencil", Button::Kind::prominent);
    writeUp->setLeading(true);
    writeUp->setToolTip(words("An honest listing description made from this report, problems first"));
    connect(writeUp, &Button::clicked, this, [this] { m_context.model.setShowWriteUp(true); });
    m_controls->add(writeUp, Space::xl);
    m_controls->add(new ReportActions(
                        m_context, [this] { return shownReport(); }, ReportFlow::History::keep,
                        ReportActions::Shape::column),
                    Space::l);
    m_message->setReservedLines(messageLines);
    m_controls->add(m_message, Space::l);
}

void ReportPage::follow() {
    if (!isVisible() || m_nextRebuild) return;
    m_nextRebuild = m_context.model.platform().scheduler().after(frame, [this] { rebuild(); });
}

void ReportPage::rebuild() {
    m_nextRebuild.reset();
    m_report = m_context.model.makeReport();
    const std::string tally = m_report->countsText();
    m_tally->setText(tally.empty() ? "No results yet." : qt(tally));
    m_unfinished->setVisible(m_report->count(TestStatus::notRun) + m_report->count(TestStatus::unfinished) >
                             0);
    m_notes->setText(qt(m_context.model.notes()));
    m_sheet->setReport(*m_report);
}

const ConditionReport& ReportPage::shownReport() {
    if (m_nextRebuild || !m_report) rebuild();
    return *m_report;
}

void ReportPage::showMessage() {
    m_message->setText(qt(m_context.model.message().value_or("")));
}

void ReportPage::showWriteUp() {
    const bool wanted = m_context.model.showWriteUp() && isVisible();
    if (wanted && !m_writeUp) {
        m_writeUp = new WriteUpSheet(m_context, shownReport(), window());
        connect(m_writeUp, &Sheet::dismissed, m_writeUp, &QObject::deleteLater);
        m_writeUp->show();
    } else if (!wanted && m_writeUp) {
        std::exchange(m_writeUp, nullptr)->deleteLater();
    }
}

void ReportPage::showEvent(QShowEvent* event) {
    rebuild();
    QWidget::showEvent(event);
    // A menu command may have asked for it before the page was there.
    QMetaObject::invokeMethod(this, &ReportPage::showWriteUp, Qt::QueuedConnection);
}

void ReportPage::resizeEvent(QResizeEvent* event) {
    const int controls = std::max(leastControls, width() - SheetView::fullWidth - dividerWidth);
    const int sheet = std::max(0, width() - controls - dividerWidth);
    m_sheet->setGeometry(0, 0, sheet, height());
    m_divider->setGeometry(sheet, 0, dividerWidth, height());
    m_controls->setGeometry(sheet + dividerWidth, 0, controls, height());
    QWidget::resizeEvent(event);
}

} // namespace tessivo
