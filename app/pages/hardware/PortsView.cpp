#include "app/pages/hardware/PortsView.h"

#include "app/controls/Button.h"
#include "app/controls/Checkbox.h"
#include "app/controls/Panel.h"
#include "app/controls/SectionHeading.h"
#include "app/controls/Stepper.h"
#include "app/controls/TextLabel.h"
#include "app/layout/WrapRow.h"
#include "app/look/Metrics.h"
#include "app/model/QtText.h"
#include "app/pages/hardware/PortRow.h"
#include "app/readers/Readers.h"

#include <algorithm>

namespace tessivo {

namespace {

constexpr auto pollInterval = std::chrono::seconds(1);
constexpr int stepperLabelWidth = 194; // 260 with its buttons
constexpr int sectionGap = 24;
/// A stored session may hold any number of slots; they are kept, and no more than these are shown.
constexpr std::size_t mostRows = 64;

} // namespace

const char* const PortsView::how =
    "Set how many USB or USB-C ports this Mac has. Then, for each port in turn, plug in a USB drive, "
    "mouse or other USB device; when it shows up, that port is ticked and the next one is picked. Unplug "
    "it and move to the next port. A charger alone doesn't count, since it isn't a USB device.";

PortsView::PortsView(const PageContext& context, QWidget* parent)
    : Column(parent),
      m_model(context.model),
      m_count(new Stepper("Ports on this Mac: %lld", PortChecklist::smallestCount,
                          PortChecklist::largestCount, stepperLabelWidth)),
      m_clear(new Button("Clear")),
      m_slots(new Panel(Panel::Kind::list)),
      m_devices(new Panel(Panel::Kind::list)),
      m_noDevices(new TextLabel("No USB devices connected.", TextRole::body, ColorRole::text2)),
      m_showHubs(new Checkbox("Show hubs (including the Mac's own)")) {
    auto* controls = new WrapRow;
    controls->add(m_count);
    controls->add(m_clear, {}, Qt::AlignRight);
    add(controls);
    add(m_slots, Space::block);
    add(new SectionHeading("Connected now"), sectionGap);
    add(m_devices, Space::heading);
    add(m_noDevices, Space::heading);
    add(m_showHubs, Space::block, Qt::AlignLeft);

    connect(m_count, &Stepper::stepped, this, [this](int count) {
        m_model.change([=](SessionState& state) { state.ports.setPortCount(count); });
    });
    connect(m_clear, &Button::clicked, this, [this] {
        m_model.change([](SessionState& state) {
            state.ports = PortChecklist::make(std::int64_t(state.ports.slots.size()));
        });
    });
    connect(m_showHubs, &Checkbox::toggled, this, &PortsView::showConnected);
    connect(&m_model, &AppModel::stateChanged, this, &PortsView::showChecklist);

    // What is plugged in already is known from the first scan on, and ticks nothing.
    m_model.change([](SessionState& state) { state.ports.baselineTaken = false; });
    showChecklist();
    showConnected();
    m_poll = std::make_unique<Poll>(m_model.platform().scheduler(), pollInterval, [this] { scan(); });
}

void PortsView::scan() {
    auto devices = readUSBDevices(m_model.platform().registry());
    PortChecklist checklist = m_model.state().ports;
    checklist.update(devices);
    if (devices != m_connected) {
        m_connected = std::move(devices);
        showConnected();
    }
    if (checklist != m_model.state().ports)
        m_model.change([&](SessionState& state) { state.ports = std::move(checklist); });
}

void PortsView::showChecklist() {
    const PortChecklist& checklist = m_model.state().ports;
    m_count->setValue(int(checklist.slots.size()));
    m_clear->setEnabled(checklist.hasActivity());
    const std::size_t rows = std::min(checklist.slots.size(), mostRows);
    if (m_rows.size() != rows) {
        m_slots->clear();
        m_rows.clear();
        for (std::size_t i = 0; i < rows; ++i) {
            auto* row = new PortRow;
            connect(row, &PortRow::testThis, this, [this, i] {
                m_model.change([i](SessionState& state) { state.ports.active = state.ports.slots.at(i).id; });
            });
            connect(row, &PortRow::nothingShowsUp, this, [this, i] {
                m_model.change([i](SessionState& state) {
                    state.ports.answer(state.ports.slots.at(i).id, ManualAnswer::problem);
                });
            });
            row->setEdges(i == 0, i + 1 == rows);
            m_slots->addRow(row);
            m_rows.push_back(row);
        }
    }
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        m_rows[i]->setSlot(checklist.slots[i], checklist.active == checklist.slots[i].id);
}

void PortsView::showConnected() {
    std::vector<USBDevice> listed;
    for (const USBDevice& device : m_connected)
        if (m_showHubs->isChecked() || !device.isHub()) listed.push_back(device);
    m_devices->setVisible(!listed.empty());
    m_noDevices->setVisible(listed.empty());
    if (listed == m_listed) return;
    m_listed = std::move(listed);
    m_devices->clear();
    for (const USBDevice& device : m_listed) {
        auto* row = new HardwareRow(Height::connectedRow);
        row->setSymbol(device.isHub() ? "point.3.connected.trianglepath.dotted" : "cable.connector",
                       ColorRole::text2);
        row->setTexts(qt(device.name), qt(device.vendor.value_or("")), ColorRole::text2,
                      HardwareRow::TextOf::device);
        m_devices->addRow(row);
    }
}

} // namespace tessivo
