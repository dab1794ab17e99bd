#include "app/pages/compare/CompareSheet.h"

#include "app/controls/Button.h"
#include "app/controls/Divider.h"
#include "app/controls/Panel.h"
#include "app/controls/Picker.h"
#include "app/controls/SelectableText.h"
#include "app/controls/StatusBadge.h"
#include "app/controls/SymbolView.h"
#include "app/controls/TextLabel.h"
#include "app/layout/Column.h"
#include "app/layout/WrapRow.h"
#include "app/model/QtText.h"
#include "app/pages/compare/ComparisonView.h"
#include "kit/report/ComparisonText.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>

namespace tessivo {

namespace {

constexpr int sheetPadding = 22;
constexpr int verdictLines = 2;

using Verdict = ReportComparison::Verdict;

struct VerdictLook {
    const char* symbol;
    ColorRole color;
};

VerdictLook look(Verdict verdict) {
    switch (verdict) {
    case Verdict::anotherMac:
    case Verdict::contradicting:
    case Verdict::worse:
        return {"xmark.octagon.fill", ColorRole::redGlyph};
    case Verdict::nothingTested:
    case Verdict::cantTell:
        return {"hand.raised.circle.fill", ColorRole::orangeGlyph};
    case Verdict::notAllRunAgain:
        return {"circle.lefthalf.filled", ColorRole::blueGlyph};
    case Verdict::allWork:
        return {"checkmark.circle.fill", ColorRole::greenGlyph};
    }
    return {"circle", ColorRole::grayGlyph};
}

QString foundText(std::size_t count) {
    return count < ReportChoices::most ? QString("%1 found").arg(count)
                                       : QString("Newest %1").arg(ReportChoices::most);
}

/// "Before" and a date; of this Mac now also when its tests began, which may be days ago.
QString dateLine(const QString& name, Date created, std::optional<Date> started) {
    const QString line = name + ": " + qt(created.shortText());
    if (!started) return line;
    return line + ", " + QString("this Mac now, tests begun %1").arg(qt(started->shortText()));
}

} // namespace

CompareSheet::CompareSheet(const PageContext& context, const ConditionReport& report, QWidget* window)
    : Sheet(window),
      m_context(context),
      m_choices(context.model.history()),
      m_report(new Picker("Report")),
      m_other(new Picker("Compared with")),
      m_search(new QLineEdit),
      m_found(new TextLabel({}, TextRole::callout, ColorRole::text2)),
      m_dates(new TextLabel({}, TextRole::callout, ColorRole::text2)),
      m_symbol(new SymbolView({}, SymbolSize::row, ColorRole::text2)),
      m_verdict(new SelectableText({}, TextRole::resultSummary)),
      m_items(new ComparisonView),
      m_copy(new Button("Copy as Text", "doc.on.doc")) {
    setAccessibleName("Compare Reports");
    add(makeHead());
    add(m_items, 1);
    add(new Divider);
    add(makeFoot());

    const std::size_t place = m_choices.placeOf(report).value_or(0);
    m_reports = m_choices.ofSameMac(place);
    QStringList labels;
    for (const std::size_t each : m_reports)
        labels << m_choices.label(each);
    m_report->setChoices(labels);
    m_report->setCurrentIndex(int(std::ranges::find(m_reports, place) - m_reports.begin()));
    m_searchRow->setVisible(m_choices.hasMore(m_reports));
    offerOthers();

    AppModel& model = m_context.model;
    connect(m_report, &QComboBox::activated, this, [this] {
        m_search->clear();
        offerOthers();
        compare();
    });
    connect(m_other, &QComboBox::activated, this, [this] { compare(); });
    connect(m_search, &QLineEdit::textEdited, this, &CompareSheet::search);
    connect(m_copy, &Button::clicked, this, &CompareSheet::copy);
    connect(&model, &AppModel::readingChanged, this, [this] {
        if (!m_isWaiting || m_context.model.reading()) return;
        m_isWaiting = false;
        m_now = m_context.model.makeReport();
        m_nowStarted = m_context.model.state().started;
        if (!m_others[std::size_t(m_other->currentIndex())]) compare();
    });
    // Its places belong to the list as it was.
    connect(&model, &AppModel::historyChanged, this, [this] {
        m_isWaiting = false;
        dismiss();
    });
    compare();
}

QWidget* CompareSheet::makeHead() {
    auto* head = new Column;
    head->column().setContentsMargins(sheetPadding, sheetPadding, sheetPadding, Space::xs);
    auto* title = new TextLabel("Compare Reports", TextRole::sheetTitle);
    title->setHeading(true);
    head->add(title);
    addPicker(*head, m_report, Space::l);
    addPicker(*head, m_other, Space::s);
    m_search->setPlaceholderText("Search the other reports");
    m_search->setAccessibleName("Search the other reports");
    m_search->setMaxLength(200);
    m_search->setFixedHeight(theme().scaled(Height::field));
    m_search->installEventFilter(this);
    m_search->setTextMargins(Space::s, 0, Space::s, 0);
    // Room for the count, so that nothing moves when it comes.
    m_found->setMaximumLines(1);
    m_found->setFixedWidth(theme().textWidth(TextRole::callout, foundText(ReportChoices::most)));
    m_searchRow = new QWidget;
    auto* row = new QHBoxLayout(m_searchRow);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Space::l);
    row->addWidget(m_search, 1);
    row->addWidget(m_found);
    head->add(m_searchRow, Space::s);
    head->add(m_dates, Space::l);
    head->add(makeVerdict(), Space::s);
    return head;
}

void CompareSheet::addPicker(Column& head, Picker* picker, int gapAbove) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Space::l);
    auto* label = new TextLabel(picker->accessibleName(), TextRole::body, ColorRole::text2);
    label->setMaximumLines(1);
    label->setFixedWidth(theme().scaled(Width::identityLabel));
    // The longest choice elides rather than widening the sheet.
    picker->setPreferredWidth(Width::tileMinimum);
    picker->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    layout->addWidget(label);
    layout->addWidget(picker, 1);
    head.add(row, gapAbove);
}

QWidget* CompareSheet::makeVerdict() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Space::s);
    layout->addWidget(m_symbol, 0, Qt::AlignTop);
    m_verdict->setHeading(true);
    m_verdict->setReservedLines(verdictLines);
    layout->addWidget(m_verdict, 1);
    return row;
}

QWidget* CompareSheet::makeFoot() {
    auto* foot = new Column;
    foot->column().setContentsMargins(sheetPadding, Space::l, sheetPadding, sheetPadding);
    foot->add(new TextLabel(qt(ComparisonText::disclaimer), TextRole::callout, ColorRole::text2));
    auto* buttons = new WrapRow(nullptr, Space::heading);
    auto* done = new Button("Done", {}, Button::Kind::prominent);
    done->setDefaultAction(true);
    buttons->add(m_copy);
    buttons->add(done);
    foot->add(buttons, Space::l, Qt::AlignRight);
    connect(done, &Button::clicked, this, [this] { dismiss(); });
    return foot;
}

bool CompareSheet::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_search &&
        (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress)) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        // Return ends a search, not the sheet.
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            event->accept();
            return true;
        }
    }
    return Sheet::eventFilter(watched, event);
}

void CompareSheet::offerOthers() {
    m_found->setText({});
    const std::size_t chosen = m_reports[std::size_t(m_report->currentIndex())];
    m_others = {std::nullopt};
    QStringList labels{"This Mac now"};
    for (const std::size_t place : m_reports) {
        if (place == chosen) continue;
        m_others.emplace_back(place);
        labels << m_choices.label(place);
    }
    m_other->setChoices(labels);
    m_other->setCurrentIndex(0);
}

void CompareSheet::search(const QString& words) {
    if (words.trimmed().isEmpty()) {
        offerOthers();
        compare();
        return;
    }
    const auto found = m_choices.found(words, m_reports[std::size_t(m_report->currentIndex())]);
    m_found->setText(foundText(found.size()));
    if (found.empty()) return; // what is shown stays
    m_others.assign(found.begin(), found.end());
    QStringList labels;
    for (const std::size_t place : found)
        labels << m_choices.label(place);
    m_other->setChoices(labels);
    m_other->setCurrentIndex(0);
    compare();
}

void CompareSheet::compare() {
    const auto& history = m_context.model.history();
    const ConditionReport& report = history[m_reports[std::size_t(m_report->currentIndex())]];
    const auto other = m_others[std::size_t(m_other->currentIndex())];
    if (other)
        showComparison(ReportComparison::make(report, history[*other]), false);
    else if (m_now)
        showComparison(ReportComparison::make(report, *m_now, m_nowStarted), true);
    else
        readThisMac();
}

void CompareSheet::readThisMac() {
    showReading();
    if (m_isWaiting) return;
    m_isWaiting = true;
    m_context.model.readBattery();
    m_context.model.readEnrollment();
}

void CompareSheet::showReading() {
    m_comparison.reset();
    m_copy->setEnabled(false);
    m_dates->setText("This Mac now");
    m_symbol->setSymbol("circle.dotted", ColorRole::text2);
    m_verdict->setText("Reading battery and device management again…");
    m_items->setWords({});
    m_items->follow(m_search);
}

void CompareSheet::showComparison(ReportComparison comparison, bool withNow) {
    m_comparison = std::move(comparison);
    const auto line = [&](const QString& name, const ReportComparison::Side& side) {
        const bool isNow = withNow && side.id == m_now->id;
        return dateLine(name, side.created, isNow ? std::optional(m_nowStarted) : std::nullopt);
    };
    m_dates->setText(line("Before", m_comparison->before) + u'\n' + line("After", m_comparison->after));
    const VerdictLook verdict = look(m_comparison->verdict);
    m_symbol->setSymbol(qt(verdict.symbol), verdict.color);
    m_verdict->setText(qt(m_comparison->verdictText));
    m_items->setComparison(*m_comparison);
    m_items->follow(m_search);
    m_copy->setEnabled(true);
    QAccessibleEvent announcement(m_verdict, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

void CompareSheet::copy() {
    m_context.model.platform().desktop().setPasteboardText(ComparisonText::text(*m_comparison, {}));
    m_context.model.setMessage("Copied. Paste it into a message.");
}

} // namespace tessivo
