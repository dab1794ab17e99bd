#include "app/pages/writeup/WriteUpSheet.h"

#include "app/controls/BusyMark.h"
#include "app/controls/Button.h"
#include "app/controls/Capsule.h"
#include "app/controls/Checkbox.h"
#include "app/controls/Divider.h"
#include "app/controls/Panel.h"
#include "app/controls/SegmentedPicker.h"
#include "app/controls/TextLabel.h"
#include "app/layout/Column.h"
#include "app/layout/SplitRow.h"
#include "app/layout/WrapRow.h"
#include "app/model/Background.h"
#include "app/model/QtText.h"
#include "app/pages/writeup/ListingText.h"
#include "app/pages/writeup/OutcomeLine.h"
#include "kit/listing/Lang.h"
#include "kit/listing/Strings.h"

#include <QVBoxLayout>

namespace tessivo {

namespace {

constexpr int sheetPadding = 22;
// However long a text of the model or of a note is, the buttons stay in the sheet; the tool tip has the rest.
constexpr int outcomeLines = 3;
constexpr int issueLines = 1;
enum Version { templateVersion, polishedVersion };

QString words(const std::string& key) {
    return qt(Strings::tr(key));
}

Column* padded(int top, int bottom) {
    auto* column = new Column;
    column->column().setContentsMargins(sheetPadding, top, sheetPadding, bottom);
    return column;
}

} // namespace

WriteUpSheet::WriteUpSheet(const PageContext& context, ConditionReport report, QWidget* window)
    : Sheet(window), m_context(context), m_report(std::move(report)), m_language(Lang::current()) {
    const Lang::Scope scope(m_language);
    setAccessibleName(words("Listing Write-Up"));
    add(makeHead());
    auto* box = new QWidget;
    auto* boxLayout = new QVBoxLayout(box);
    boxLayout->setContentsMargins(sheetPadding, Space::l, sheetPadding, 0);
    m_text = new ListingText(words("Listing description"));
    boxLayout->addWidget(m_text);
    add(box, 1);
    auto* serialRow = padded(Space::xl, Space::xl);
    m_serial = new Checkbox(words("Include the serial number"));
    serialRow->add(m_serial, 0, Qt::AlignLeft);
    add(serialRow);
    add(new Divider);
    add(makePolishRow());
    add(makeFoot());
    makeWriteUp();

    connect(m_serial, &Checkbox::toggled, this, [this] {
        // A rewording belongs to one template text.
        forgetPolish();
        makeWriteUp();
        refresh();
    });
    refresh();
}

WriteUpSheet::~WriteUpSheet() = default;

QWidget* WriteUpSheet::makeHead() {
    auto* head = padded(sheetPadding, 0);
    auto* title = new TextLabel(words("Listing Write-Up"), TextRole::sheetTitle);
    title->setHeading(true);
    const Capsule::Look draft{"exclamationmark.bubble", words("Draft: check before posting"),
                              ColorRole::orange,        ColorRole::orange,
                              ColorRole::orange,        15};
    head->add(new SplitRow(title, new Capsule(Capsule::tag, draft)));
    head->add(
        new TextLabel(words("Every number, spec and problem is copied from the report. You're responsible "
                            "for what your listing says, so read it before you post."),
                      TextRole::body, ColorRole::text2),
        Space::s);

    auto* version = new WrapRow(nullptr, Space::l);
    auto* label = new TextLabel(words("Version"), TextRole::body, ColorRole::text2);
    label->setMaximumLines(1);
    m_version = new SegmentedPicker(words("Version"), {words("Template"), words("Polished")});
    version->add(label);
    version->add(m_version);
    m_versionRow = version;
    head->add(version, Space::l);
    connect(m_version, &SegmentedPicker::chosen, this, [this](int index) {
        m_showPolished = index == polishedVersion;
        refresh();
    });
    return head;
}

QWidget* WriteUpSheet::makePolishRow() {
    auto* row = padded(Space::l, 0);
    if (const auto reason = availabilityMessage(m_context.model.platform().wordingService().availability())) {
        row->add(new TextLabel(qt(*reason), TextRole::body, ColorRole::text2));
    } else {
        auto* controls = new WrapRow(nullptr, Space::l);
        m_polishButton = new Button(words("Polish Wording"));
        controls->add(m_polishButton);
        auto* busy = new WrapRow(nullptr, Space::s);
        busy->add(new BusyMark);
        auto* busyLabel = new TextLabel(words("Polishing on this Mac…"), TextRole::body, ColorRole::text2);
        busyLabel->setMaximumLines(1);
        busy->add(busyLabel);
        m_busy = busy;
        controls->add(busy);
        auto* privacy = new TextLabel(words("Nothing leaves this Mac."), TextRole::body, ColorRole::text2);
        privacy->setMaximumLines(1);
        controls->add(privacy);
        row->add(controls);
        connect(m_polishButton, &Button::clicked, this, &WriteUpSheet::polish);
    }
    m_outcomeLine = new OutcomeLine;
    m_outcomeLine->setMaximumLines(outcomeLines);
    row->add(m_outcomeLine, Space::s);
    for (std::size_t i = 0; i < mostIssues; ++i) {
        auto* issue = new TextLabel({}, TextRole::callout, ColorRole::text2);
        issue->setMaximumLines(issueLines);
        row->add(issue);
        m_issueLabels.push_back(issue);
    }
    return row;
}

QWidget* WriteUpSheet::makeFoot() {
    auto* foot = padded(Space::xl, sheetPadding);
    auto* buttons = new WrapRow(nullptr, Space::heading);
    auto* copy = new Button(words("Copy"), "doc.on.doc");
    auto* done = new Button(words("Done"), {}, Button::Kind::prominent);
    done->setDefaultAction(true);
    buttons->add(copy);
    buttons->add(done);
    foot->add(buttons, 0, Qt::AlignRight);
    connect(copy, &Button::clicked, this, [this] {
        const Lang::Scope scope(m_language);
        m_context.model.platform().desktop().setPasteboardText(shownText());
        m_context.model.setMessage(Strings::tr("Copied. Read it once more before you post."));
    });
    connect(done, &Button::clicked, this, [this] { dismiss(); });
    return foot;
}

void WriteUpSheet::dismiss() {
    Sheet::dismiss();
    m_context.model.setShowWriteUp(false);
}

void WriteUpSheet::makeWriteUp() {
    const Lang::Scope scope(m_language);
    m_writeUp = ListingTemplate::make(m_report, m_serial->isChecked());
}

void WriteUpSheet::forgetPolish() {
    ++m_round;
    m_polishing = false;
    m_polished.reset();
    m_outcome.reset();
    m_issues.clear();
    m_showPolished = false;
}

std::string WriteUpSheet::shownText() const {
    return m_showPolished && m_polished ? *m_polished : m_writeUp.text;
}

void WriteUpSheet::polish() {
    WordingService& service = m_context.model.platform().wordingService();
    if (m_polishing || service.availability() != WordingAvailability::available) return;
    m_polishing = true;
    m_issues.clear();
    refresh();
    Background::detached(
        this,
        [writeUp = m_writeUp, model = service.makeModel()] { return WordingPolish::polish(writeUp, *model); },
        [this, round = m_round](const PolishResult& result) {
            if (round == m_round) conclude(result);
        });
}

void WriteUpSheet::conclude(const PolishResult& result) {
    const Lang::Scope scope(m_language);
    m_polishing = false;
    if (const auto* polished = std::get_if<PolishResult::Polished>(&result.outcome)) {
        m_polished = polished->text;
        m_showPolished = true;
        m_outcome = Strings::tr("Reworded on this Mac. Every number and problem matched the report.");
    } else if (const auto* discarded = std::get_if<PolishResult::Discarded>(&result.outcome)) {
        m_polished.reset();
        m_showPolished = false;
        m_outcome = Strings::tr("The reworded version was thrown away, so the template stays:");
        m_issues = discarded->issues;
        m_issues.resize(std::min(m_issues.size(), mostIssues));
    } else {
        m_outcome = Strings::tr("Couldn't polish the wording: %@",
                                {std::get<PolishResult::Failed>(result.outcome).description});
    }
    // Hidden first: so it appears anew, and a screen reader tells it.
    m_outcomeLine->hide();
    refresh();
}

void WriteUpSheet::refresh() {
    const Lang::Scope scope(m_language);
    m_versionRow->setVisible(m_polished.has_value());
    m_version->setCurrent(m_showPolished ? polishedVersion : templateVersion);
    m_text->setListing(qt(shownText()));
    if (m_polishButton) {
        m_polishButton->setEnabled(!m_polishing);
        m_busy->setVisible(m_polishing);
    }
    m_outcomeLine->setText(qt(m_outcome.value_or("")));
    m_outcomeLine->setVisible(m_outcome.has_value());
    for (std::size_t i = 0; i < m_issueLabels.size(); ++i) {
        const bool present = i < m_issues.size();
        m_issueLabels[i]->setText(present ? qt("• " + m_issues[i].message()) : QString());
        m_issueLabels[i]->setVisible(present);
    }
}

} // namespace tessivo
