#include "app/pages/report/PickupView.h"

#include "app/controls/Divider.h"
#include "app/controls/FactGrid.h"
#include "app/controls/Panel.h"
#include "app/controls/TextLabel.h"
#include "app/model/QtText.h"
#include "app/pages/frame/PageHeader.h"
#include "app/pages/report/PickupRow.h"
#include "kit/report/ReportAssembler.h"

#include <QScrollBar>
#include <algorithm>

namespace tessivo {

namespace {

enum Fact { serialNumber, modelID, deviceManagement, storage };

constexpr FactGrid::Look factLook{.labelWidth = 160, .gap = 6, .rowHeight = 26};
constexpr int aboveFacts = 13;

} // namespace

PickupView::PickupView(const PageContext& context, QWidget* parent)
    : ScrollColumn(parent, Width::columnNarrow), m_model(context.model), m_steps(new Column) {
    add(new PageHeader(qt(title(Page::pickup)), qt(symbol(Page::pickup))));
    auto* how =
        new TextLabel("Buying this Mac? A PDF can be edited, so rerun the quick tests here and compare them "
                      "with the seller's report. It takes under two minutes.",
                      TextRole::body, ColorRole::text2);
    add(how, PageHead::howGap);
    how->setMaximumWidth(theme().scaled(PageHead::howWidth));

    auto* facts = new Column;
    facts->column().setContentsMargins(Space::block, aboveFacts, Space::block, Space::m);
    for (const char* label : {"Serial number", "Model ID", "Device management", "Storage"}) {
        // One grid each: no dividers stand between these.
        auto* fact = new FactGrid(factLook);
        fact->addFact(label, {}, m_facts.empty());
        facts->add(fact);
        m_facts.push_back(fact);
    }
    auto* also = new Column;
    also->column().setContentsMargins(Space::block, Space::m, Space::block, Space::s);
    also->add(new TextLabel("Also open Apple menu › About This Mac: its serial number should match.",
                            TextRole::callout, ColorRole::text2));
    auto* panel = new Panel(Panel::Kind::list);
    panel->add(facts);
    panel->add(new Divider);
    panel->add(also);
    add(panel, Space::block);
    add(m_steps, Space::block);
    add(new TextLabel("Also worth a look: Activation Lock (on the This Mac page) and the trackpad, ports "
                      "and microphones if you have time.",
                      TextRole::body, ColorRole::text2),
        Space::block);
    connect(&m_model, &AppModel::stateChanged, this, &PickupView::follow);
    follow();
}

std::optional<Page> PickupView::pageOf(const PickupStep& step) {
    const auto test = ReportAssembler::testOf(step);
    for (const Page page : allCases<Page>())
        if (test && std::ranges::count(tests(page), *test) > 0) return page;
    return std::nullopt;
}

void PickupView::follow() {
    const MachineInfo& machine = m_model.state().machine;
    const auto setFact = [this](Fact fact, const QString& value) { m_facts[fact]->setValue(0, value); };
    setFact(serialNumber, machine.serial ? qt(*machine.serial) : "Couldn't read it");
    const std::string name = machine.displayName();
    setFact(modelID, qt(name == machine.modelID ? name : name + ", " + machine.modelID));
    setFact(deviceManagement, qt(m_model.result(TestID::enrollment).summary));
    setFact(storage, machine.storageText() ? qt(*machine.storageText()) : "Couldn't read it");

    const auto steps = ReportAssembler::pickupSteps(machine, m_model.results());
    if (steps != m_shown) makeRows(steps);
    for (PickupRow* row : m_rows)
        if (row->page()) row->setStatus(m_model.status(*row->page()));
}

void PickupView::makeRows(const std::vector<PickupStep>& steps) {
    for (PickupRow* row : m_rows) {
        row->hide();
        row->deleteLater();
    }
    m_rows.clear();
    for (const PickupStep& step : steps) {
        auto* row = new PickupRow(step, pageOf(step));
        connect(row, &PickupRow::opened, &m_model, &AppModel::setPage);
        m_steps->add(row, Space::s);
        m_rows.push_back(row);
    }
    m_shown = steps;
}

} // namespace tessivo
