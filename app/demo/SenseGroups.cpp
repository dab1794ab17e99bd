// What the Mac hears, sees and feels: microphones, cameras, trackpad.

#include "app/demo/Groups.h"
#include "app/demo/Rows.h"
#include "app/model/QtText.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QSlider>

namespace tessivo::demo {

namespace {

constexpr int quietest = -80, loudest = 0, spoken = -20; // dB

QStringList deviceIDs(SimulatedControls& mac, MediaType type) {
    QStringList ids;
    if (const auto& entries = mac.facts().captureEntries(type))
        for (const auto& entry : *entries)
            ids << qt(entry.uniqueID);
    return ids;
}

/// The rows that microphones and cameras have in common: which device, whether it opens, who may use it.
QComboBox* addDevice(QFormLayout* form, SimulatedControls& mac, MediaType type,
                     const CaptureDevice& external) {
    auto* device = addChoice(form, "Device", deviceIDs(mac, type));
    const auto chosen = [device] { return device->currentText().toStdString(); };
    addButtons(form, {{"Add Another",
                       [=, &mac] {
                           mac.removeDevice(type, external.uniqueID);
                           mac.addDevice(type, external);
                           device->clear();
                           device->addItems(deviceIDs(mac, type));
                       }},
                      {"Remove", [=, &mac] {
                           mac.removeDevice(type, chosen());
                           device->clear();
                           device->addItems(deviceIDs(mac, type));
                       }}});
    addChoice(form, "List", {"Is read", "Nothing answers", "No driver"}, [type, &mac](int index) {
        using Fault = CaptureList::Fault;
        mac.failList(type, index ? std::optional(Fault(index - 1)) : std::nullopt);
    });
    addChoice(form, "When opened", {"Opens", "Turns out broken", "Is busy", "Is refused"},
              [=, &mac](int index) {
                  mac.failOpening(chosen(), index ? std::optional(OpenFault(index - 1)) : std::nullopt);
              });
    addSwitch(form, "Can’t be opened", [=, &mac](bool on) { mac.setOpens(type, chosen(), !on); });
    addSwitch(form, "Never finishes opening", [=, &mac](bool on) {
        mac.setOpening(chosen(), on ? std::nullopt : std::optional(std::chrono::milliseconds(0)));
    });
    const auto access =
        addChoice(form, "Access", {"Not asked yet", "Restricted", "Denied", "Allowed"},
                  [type, &mac](int index) { mac.setAccess(type, AuthorizationStatus(index)); });
    access->setCurrentIndex(int(mac.access(type)));
    return device;
}

/// The surface of a trackpad: where the mouse is pressed, a finger lies.
class Pad final : public QWidget {
public:
    explicit Pad(SimulatedControls& mac) : m_mac(mac) {
        setFixedHeight(120);
        setAccessibleName("Trackpad surface");
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        painter.drawText(rect(), Qt::AlignCenter, "Drag a finger here");
    }
    void mousePressEvent(QMouseEvent* event) override { finger(event); }
    void mouseMoveEvent(QMouseEvent* event) override { finger(event); }
    void mouseReleaseEvent(QMouseEvent*) override { m_mac.touch({}); }

private:
    void finger(const QMouseEvent* event) {
        m_mac.touch({{event->position().x() / width(), event->position().y() / height()}});
    }
    SimulatedControls& m_mac;
};

} // namespace

QGroupBox* microphoneGroup(SimulatedControls& mac) {
    auto* box = new QGroupBox("Microphones");
    auto* form = formIn(box);
    auto* device = addDevice(form, mac, MediaType::audio, {"demo-microphone", "USB Microphone"});
    auto* level = new QSlider(Qt::Horizontal);
    level->setRange(quietest, loudest);
    level->setValue(spoken);
    auto* shown = new QLabel(QString("%1 dB").arg(spoken));
    auto* row = new QHBoxLayout;
    row->addWidget(level);
    row->addWidget(shown);
    form->addRow("Level", row);
    level->setAccessibleName("Level");
    auto* speaks = new QCheckBox("Speak into it");
    form->addRow(speaks);
    const auto apply = [=, &mac] {
        shown->setText(QString("%1 dB").arg(level->value()));
        mac.keepSpeaking(device->currentText().toStdString(),
                         speaks->isChecked() ? std::optional<double>(level->value()) : std::nullopt);
    };
    QObject::connect(level, &QSlider::valueChanged, box, apply);
    QObject::connect(speaks, &QCheckBox::toggled, box, apply);
    return box;
}

QGroupBox* cameraGroup(SimulatedControls& mac) {
    auto* box = new QGroupBox("Cameras");
    auto* form = formIn(box);
    auto* device = addDevice(form, mac, MediaType::video, {"demo-camera", "USB Camera"});
    const auto chosen = [device] { return device->currentText().toStdString(); };
    addSwitch(form, "Send frames", [=, &mac](bool on) { mac.keepSending(chosen(), on); });
    addButtons(form, {{"Send Three Frames", [=, &mac] { mac.sendFrames(chosen(), 3); }}});
    return box;
}

QGroupBox* trackpadGroup(SimulatedControls& mac) {
    auto* box = new QGroupBox("Trackpad");
    auto* form = formIn(box);
    form->addRow(new Pad(mac));
    const auto gesture = [&mac](Gesture kind) { return [&mac, kind] { mac.gesture(kind); }; };
    addButtons(form, {{"Touch All",
                       [&mac] {
                           constexpr int steps = 24;
                           for (int y = 0; y < steps; ++y)
                               for (int x = 0; x < steps; ++x)
                                   mac.touch({{(x + 0.5) / steps, (y + 0.5) / steps}});
                           mac.touch({});
                       }},
                      {"Two Fingers", [&mac] {
                           mac.touch({{0.4, 0.5}, {0.6, 0.5}});
                           mac.touch({});
                       }}});
    addButtons(form, {{"Click", gesture(Gesture::click)},
                      {"Secondary", gesture(Gesture::secondary)},
                      {"Force", gesture(Gesture::force)}});
    addButtons(form, {{"Scroll", gesture(Gesture::scroll)}, {"Pinch", gesture(Gesture::zoom)}});
    return box;
}

} // namespace tessivo::demo
