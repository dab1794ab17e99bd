#include "app/pages/OverviewView.h"

#include "app/controls/Button.h"
#include "app/controls/FactGrid.h"
#include "app/controls/Panel.h"
#include "app/controls/SectionHeading.h"
#include "app/controls/SegmentedPicker.h"
#include "app/controls/StatusBadge.h"
#include "app/controls/SymbolView.h"
#include "app/controls/TextLabel.h"
#include "app/controls/Tile.h"
#include "app/controls/TileGrid.h"
#include "app/layout/SplitRow.h"
#include "app/layout/WrapRow.h"
#include "app/model/QtText.h"
#include "kit/rules/RuleTexts.h"

#include <QHBoxLayout>
#include <algorithm>

namespace tessivo {

namespace {

// The rows of the identity panel, in order.
enum Fact { serialNumber, modelID, chip, memory, storage, system };

constexpr int identityPadding = 8; // a row brings its own room
constexpr int underHeadline = 2;
constexpr int underName = -2; // the large line has room to spare below
constexpr int tilesGap = 24;

const char* symbolOf(std::optional<MacKind> kind) {
    if (kind == MacKind::laptop) return "laptopcomputer";
    return kind == MacKind::desktop ? "macmini" : "desktopcomputer";
}

TextLabel* callout(const QString& words = {}) {
    return new TextLabel(words, TextRole::callout, ColorRole::text2);
}

/// A panel's headline with its badge at the far end.
SplitRow* headline(TestID test, StatusBadge* badge) {
    auto* label = new TextLabel(qt(title(test)), TextRole::headline);
    label->setHeading(true);
    return new SplitRow(label, badge);
}

} // namespace

OverviewView::OverviewView(AppModel& model, QWidget* parent) : ScrollColumn(parent), m_model(model) {
    addHeader();
    addIdentity();
    addEnrollment();
    addActivationLock();
    addTiles();
    connect(&m_model, &AppModel::stateChanged, this, &OverviewView::followState);
    connect(&m_model, &AppModel::readingChanged, this, &OverviewView::followEnrollment);
    followState();
}

void OverviewView::addHeader() {
    m_symbol = new SymbolView({}, SymbolSize::thisMac, ColorRole::accent);
    m_name = new TextLabel({}, TextRole::pageTitle);
    m_name->setHeading(true);
    auto* words = new Column;
    words->add(m_name);
    words->add(new TextLabel("Test it, then make a whole-machine condition report for your listing.",
                             TextRole::body, ColorRole::text2),
               underName);
    auto* header = new QWidget;
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Space::xl);
    row->addWidget(m_symbol, 0, Qt::AlignVCenter);
    row->addWidget(words, 1);
    add(header);
}

void OverviewView::addIdentity() {
    m_identity = new FactGrid(FactGrid::identity());
    m_identity->addFact("Serial number", {}, true);
    m_identity->addFact("Model ID", {}, true);
    m_identity->addFact("Chip");
    m_identity->addFact("Memory");
    m_identity->addFact("Storage");
    m_identity->addFact("macOS");
    auto* panel = new Panel;
    panel->column().setContentsMargins(Space::block, identityPadding, Space::block, Space::l);
    panel->add(m_identity);
    panel->add(
        callout("About This Mac (in the Apple menu) shows the same serial number, so a buyer can match "
                "them."),
        Space::s);
    add(panel, Space::xxl);
}

void OverviewView::addEnrollment() {
    m_enrollment = new StatusBadge;
    m_enrollmentSummary = new TextLabel;
    m_enrollmentDetails = new Column;
    m_readAgain = new Button("Read Again");
    connect(m_readAgain, &Button::clicked, &m_model, &AppModel::readEnrollment);

    auto* words = new Column;
    words->add(m_enrollmentSummary);
    words->add(m_enrollmentDetails, Space::xxs);
    auto* body = new SplitRow(words, m_readAgain);
    body->layout()->setAlignment(m_readAgain, Qt::AlignBottom);
    auto* panel = new Panel;
    panel->add(headline(TestID::enrollment, m_enrollment));
    panel->add(body, underHeadline);
    add(panel, Space::overviewCard);
}

void OverviewView::addActivationLock() {
    m_lock = new StatusBadge;
    const QString shows = "System Information shows";
    m_lockAnswer = new SegmentedPicker(shows, {"Not checked yet", "Disabled", "Enabled"});
    connect(m_lockAnswer, &SegmentedPicker::chosen, this, [this](int index) {
        m_model.change([index](SessionState& state) {
            state.activationLock = allCases<ActivationLockAnswer>().at(size_t(index));
        });
    });
    m_lockWarning = new TextLabel({}, TextRole::callout, ColorRole::red);

    auto* how = new TextLabel("Apps can't read this, so check it by hand: " + qt(Rules::activationLockHowTo),
                              TextRole::callout);
    auto* answer = new WrapRow(nullptr, Space::l);
    answer->add(new TextLabel(shows, TextRole::body, ColorRole::text2));
    answer->add(m_lockAnswer);
    auto* panel = new Panel;
    panel->add(headline(TestID::activationLock, m_lock));
    panel->add(how, underHeadline);
    how->setMaximumWidth(theme().scaled(PageHead::howWidth));
    panel->add(answer, Space::m);
    panel->add(m_lockWarning, Space::m);
    add(panel, Space::overviewCard);
}

void OverviewView::addTiles() {
    add(new SectionHeading("Tests"), tilesGap);
    auto* grid = new TileGrid;
    for (const Page page : AppModel::testPages(std::nullopt)) {
        auto* tile = new Tile(qt(title(page)), qt(symbol(page)));
        connect(tile, &Tile::clicked, this, [this, page] { m_model.setPage(page); });
        m_tiles[page] = tile;
        grid->add(tile);
    }
    add(grid, Space::heading);
}

void OverviewView::followState() {
    followMachine();
    followEnrollment();
    followActivationLock();
    followTiles();
}

void OverviewView::followMachine() {
    const MachineInfo& machine = m_model.state().machine;
    m_symbol->setSymbol(qt(symbolOf(m_model.state().kind())), ColorRole::accent);
    m_name->setText(qt(machine.displayName()));
    m_identity->setValue(serialNumber, machine.serial ? qt(*machine.serial) : "Couldn't read it");
    m_identity->setValue(modelID, qt(machine.modelID));
    m_identity->setValue(chip, qt(machine.chip.value_or("—")));
    m_identity->setValue(memory, qt(machine.memoryText()));
    m_identity->setValue(storage, qt(machine.storageText().value_or("—")));
    m_identity->setValue(system, qt(machine.osVersion));
}

void OverviewView::followEnrollment() {
    const TestResult result = m_model.result(TestID::enrollment);
    m_enrollment->setStatus(result.status);
    m_enrollmentSummary->setText(qt(result.summary));
    while (m_detailLines.size() < result.details.size()) {
        m_detailLines.push_back(callout());
        m_enrollmentDetails->add(m_detailLines.back());
    }
    for (size_t i = 0; i < m_detailLines.size(); ++i) {
        if (i < result.details.size()) m_detailLines[i]->setText(qt(result.details[i]));
        m_detailLines[i]->setVisible(i < result.details.size());
    }
    m_readAgain->setEnabled(!m_model.reading());
}

void OverviewView::followActivationLock() {
    const TestResult result = m_model.result(TestID::activationLock);
    const ActivationLockAnswer answer = m_model.state().activationLock;
    m_lock->setStatus(result.status);
    m_lockAnswer->setCurrent(int(answer));
    const bool warns = answer == ActivationLockAnswer::enabled && !result.details.empty();
    m_lockWarning->setText(warns ? qt(result.details.front()) : QString());
    m_lockWarning->setVisible(warns);
}

void OverviewView::followTiles() {
    const auto shown = AppModel::testPages(m_model.state().kind());
    for (const auto& [page, tile] : m_tiles) {
        tile->setVisible(std::ranges::find(shown, page) != shown.end());
        if (tile->isHidden()) continue;
        const TestResult result = m_model.result(tests(page).front());
        tile->setStatus(result.status, qt(result.summary));
    }
}

} // namespace tessivo
