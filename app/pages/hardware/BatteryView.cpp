#include "app/pages/hardware/BatteryView.h"

#include "app/controls/Button.h"
#include "app/controls/FactGrid.h"
#include "app/controls/Panel.h"
#include "app/look/Metrics.h"
#include "app/model/QtText.h"
#include "kit/support/Text.h"

namespace tessivo {

namespace {

enum Row { maximumCapacity, chargeCycles, fullCharge, condition };

QString grouped(std::int64_t number) {
    return qt(Text::grouped(number));
}

} // namespace

const char* const BatteryView::how =
    "Reads the battery's charge cycles, how much a full charge holds compared with new, and macOS's own "
    "condition. Desktop Macs have no battery.";

BatteryView::BatteryView(const PageContext& context, QWidget* parent)
    : Column(parent), m_model(context.model), m_facts(new FactGrid) {
    for (const char* label : {"Maximum capacity", "Charge cycles", "Full charge", "macOS condition"})
        m_facts->addFact(label);
    auto* panel = new Panel;
    panel->setPadding(Space::block, Space::xxs);
    panel->add(m_facts);
    add(panel);
    auto* readAgain = new Button("Read Again");
    add(readAgain, Space::block, Qt::AlignLeft);
    connect(readAgain, &Button::clicked, this, [this] { m_model.readBattery(); });
    connect(&m_model, &AppModel::stateChanged, this, &BatteryView::show);
    show();
}

void BatteryView::show() {
    const BatteryReading reading = m_model.state().battery.value_or(BatteryReading{});
    const QString unread = "Couldn't read it";
    const auto health = reading.healthPercent();
    m_facts->setValue(maximumCapacity, health ? QString::number(*health) + "%" : unread);
    QString cycles = unread;
    if (reading.cycleCount) {
        cycles = grouped(*reading.cycleCount);
        if (reading.designCycleCount) cycles += " (designed for " + grouped(*reading.designCycleCount) + ")";
    }
    m_facts->setValue(chargeCycles, cycles);
    m_facts->setValue(fullCharge, reading.fullChargeCapacity && reading.designCapacity
                                      ? grouped(*reading.fullChargeCapacity) + " mAh of " +
                                            grouped(*reading.designCapacity) + " mAh when new"
                                      : unread);
    m_facts->setValue(condition, reading.condition ? qt(*reading.condition) : "Not given");
}

} // namespace tessivo
