// What is plugged into the Mac and pulled out of it: USB devices, headphones, a network cable.

#include "app/demo/Groups.h"
#include "app/demo/Rows.h"
#include "app/model/QtText.h"
#include "kit/hardware/RegistryNames.h"

#include <QListWidget>
#include <QSpinBox>

namespace tessivo::demo {

namespace {

constexpr int mostPorts = 8;
constexpr int busShift = 24;              // each port of the Mac on a bus of its own
constexpr std::uint32_t first = 0x100000; // the first device on a bus
constexpr std::uint32_t behind = 0x10000; // the first behind a hub
constexpr std::int64_t hubClass = 9;

struct Device {
    const char* name;
    std::int64_t vendor, product;
    std::int64_t speed;
};

constexpr Device devices[] = {{"Flash Drive", 0x0781, 0x5581, 3},
                              {"Keyboard", 0x05ac, 0x024f, 1},
                              {"Portable SSD", 0x04e8, 0x61f5, 4},
                              {"", 0x1234, 0x0001, 3}};

std::uint32_t portLocation(int port) {
    return std::uint32_t(port) << busShift | first;
}

void showPlugged(SimulatedControls& mac, QListWidget& list) {
    list.clear();
    for (const RegistryEntry& entry : mac.entries(RegistryClass::usbDevice)) {
        if (!entry.properties) continue;
        list.addItem(QString("%1  at 0x%2")
                         .arg(qt(text(*entry.properties, RegistryKey::productName).value_or("no name")))
                         .arg(integer(*entry.properties, RegistryKey::locationID).value_or(0), 8, 16,
                              QLatin1Char('0')));
    }
}

} // namespace

QGroupBox* usbGroup(SimulatedControls& mac) {
    auto* box = new QGroupBox("USB");
    auto* form = formIn(box);
    auto* device = addChoice(
        form, "Device",
        {"Flash drive", "Keyboard (slow)", "SSD (fast)", "Without a name", "Hub", "Hub with two devices"});
    auto* port = new QSpinBox;
    port->setRange(1, mostPorts);
    form->addRow("Port", port);
    auto* list = new QListWidget;
    list->setAccessibleName("Plugged in");
    list->setMaximumHeight(80);
    list->setFocusPolicy(Qt::NoFocus);
    addButtons(form, {{"Plug In",
                       [=, &mac] {
                           const std::uint32_t location = portLocation(port->value());
                           mac.unplugUSB(location);
                           const int choice = device->currentIndex();
                           if (choice < int(std::size(devices))) {
                               const Device& plugged = devices[choice];
                               mac.plugUSB(plugged.name, plugged.vendor, plugged.product, location, 0,
                                           plugged.speed);
                           } else {
                               mac.plugUSB("Hub", 0x05e3, 0x0610, location, hubClass);
                               for (int i = 0; i < 2 * (choice - int(std::size(devices))); ++i)
                                   mac.plugUSB(devices[i].name, devices[i].vendor, devices[i].product,
                                               location | std::uint32_t(i + 1) * behind, 0, devices[i].speed);
                           }
                           showPlugged(mac, *list);
                       }},
                      {"Unplug", [=, &mac] {
                           mac.unplugUSB(portLocation(port->value()));
                           showPlugged(mac, *list);
                       }}});
    form->addRow(list);
    showPlugged(mac, *list);
    return box;
}

QGroupBox* headphonesGroup(SimulatedControls& mac) {
    auto* box = new QGroupBox("Headphone jack and speakers");
    auto* form = formIn(box);
    auto* shape = addChoice(form, "Shown as", {"Data source", "Device of its own"});
    addButtons(
        form,
        {{"Put In", [=, &mac] { mac.insertHeadphones(SimulatedControls::JackForm(shape->currentIndex())); }},
         {"Pull Out", [&mac] { mac.pullHeadphones(); }}});
    addSwitch(form, "The sound engine can’t start", [&mac](bool on) { mac.failEngine(on); });
    return box;
}

QGroupBox* ethernetGroup(SimulatedControls& mac) {
    auto* box = new QGroupBox("Ethernet");
    auto* form = formIn(box);
    QStringList names;
    for (const RegistryEntry& entry : mac.entries(RegistryClass::network))
        if (entry.properties) names << qt(text(*entry.properties, RegistryKey::interfaceName).value_or(""));
    auto* port = addChoice(form, "Interface", names);
    auto* speed = addChoice(form, "Speed", {"10", "100", "1000", "2500", "10000"});
    speed->setCurrentIndex(2);
    addButtons(form, {{"Raise Link",
                       [=, &mac] {
                           mac.raiseLink(port->currentText().toStdString(),
                                         speed->currentText().toLongLong() * 1'000'000);
                       }},
                      {"Drop Link", [=, &mac] { mac.dropLink(port->currentText().toStdString()); }}});
    return box;
}

} // namespace tessivo::demo
