// What the Mac's system says and does: device management, battery, updates, rewording, the disk.

#include "app/demo/FeedServer.h"
#include "app/demo/FullDisk.h"
#include "app/demo/Groups.h"
#include "app/demo/Rows.h"
#include "app/model/QtText.h"
#include "kit/hardware/RegistryNames.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTimer>

namespace tessivo::demo {

namespace {

constexpr int activityInterval = 500; // milliseconds
constexpr int mostActivity = 60;      // characters of a text that is shown

void addNumber(QFormLayout* form, const QString& label, SimulatedControls& mac, const char* key, int most) {
    auto* number = new QSpinBox;
    number->setRange(-1, most);
    number->setSpecialValueText("missing");
    std::int64_t now = -1;
    const auto& batteries = mac.entries(RegistryClass::battery);
    if (!batteries.empty() && batteries.front().properties)
        now = integer(*batteries.front().properties, key).value_or(-1);
    number->setValue(int(now));
    QObject::connect(number, &QSpinBox::valueChanged, number, [&mac, key](int value) {
        mac.setBattery(key, value < 0 ? Property() : Property(value));
    });
    form->addRow(label, number);
}

} // namespace

QGroupBox* enrollmentGroup(SimulatedControls& mac) {
    auto* box = new QGroupBox("Device management (read again to see it)");
    addChoice(formIn(box), "Tool says",
              {"As in the machine file", "Not enrolled", "Enrolled", "Tool missing", "Tool hangs",
               "Tool floods its output", "Tool fails"},
              [&mac](int index) {
                  const std::function<void()> actions[] = {[] {},
                                                           [&] { mac.setEnrolled(false); },
                                                           [&] { mac.setEnrolled(true); },
                                                           [&] { mac.removeEnrollmentTool(); },
                                                           [&] { mac.hangEnrollmentTool(); },
                                                           [&] { mac.floodEnrollmentTool(); },
                                                           [&] { mac.setEnrollmentAnswer({}, 1); }};
                  actions[index]();
              });
    return box;
}

QGroupBox* batteryGroup(SimulatedControls& mac) {
    auto* box = new QGroupBox("Battery (read again to see it)");
    auto* form = formIn(box);
    addNumber(form, "Charge cycles", mac, RegistryKey::cycleCount, 5000);
    addNumber(form, "Design capacity, mAh", mac, RegistryKey::designCapacity, 20000);
    addNumber(form, "Full charge, mAh", mac, RegistryKey::nominalCapacity, 20000);
    addChoice(form, "Condition", {"Good", "Fair", "Poor", "Check Battery", "missing"}, [&mac](int index) {
        static const char* const health[] = {"Good", "Fair", "Poor", "Check Battery"};
        mac.setPowerSource(RegistryKey::batteryHealth, index < 4 ? Property(health[index]) : Property());
    });
    addButtons(form, {{"Take the Battery Out", [&mac] { mac.removeBattery(); }}});
    return box;
}

QGroupBox* updatesGroup(SimulatedControls& mac, FeedServer& server) {
    auto* box = new QGroupBox("Update server");
    addChoice(formIn(box), "Answers",
              {"No feed is set", "200: there is a feed", "404: no feed yet", "405: refuses HEAD",
               "500: fails", "Never", "A body without end", "A circle of redirects", "Can’t be reached"},
              [&mac, &server](int index) {
                  if (index == 0) return mac.setFeedURL(std::nullopt);
                  server.setAnswer(FeedServer::Answer(index - 1));
                  mac.setFeedURL(server.url());
              });
    return box;
}

QGroupBox* wordingGroup(SimulatedControls& mac) {
    auto* box = new QGroupBox("Language model");
    auto* form = formIn(box);
    addChoice(form, "There is one", {"No", "Yes", "Turned off", "Not ready"}, [&mac](int index) {
        constexpr WordingAvailability all[] = {WordingAvailability::unsupported,
                                               WordingAvailability::available, WordingAvailability::turnedOff,
                                               WordingAvailability::notReady};
        mac.wording().setAvailability(all[index]);
    });
    auto* answer = addChoice(form, "It answers",
                             {"The text as it is", "The text below", "A failure", "Not until released"});
    auto* words = new QPlainTextEdit("A lovely Mac, like new. Battery at 100%.");
    words->setAccessibleName("Rewording");
    words->setMaximumHeight(60);
    form->addRow(words);
    const auto apply = [=, &mac] {
        const std::string text = words->toPlainText().toStdString();
        std::vector<ScriptedAnswer> script;
        if (answer->currentIndex() == 1) script = {{.text = text}};
        if (answer->currentIndex() == 2) script = {{.text = "The model is busy.", .fails = true}};
        if (answer->currentIndex() == 3) script = {{.text = text, .waits = true}};
        mac.wording().setAnswers(std::move(script));
    };
    QObject::connect(answer, &QComboBox::activated, box, apply);
    QObject::connect(words, &QPlainTextEdit::textChanged, box, apply);
    addButtons(form, {{"Release", [&mac] { mac.wording().release(); }}});
    return box;
}

QGroupBox* diskGroup(SimulatedControls& mac) {
    auto* box = new QGroupBox("Disk");
    auto* form = formIn(box);
    addSwitch(form, "The History folder is read-only (but for root)",
              [&mac](bool on) { mac.setHistoryReadOnly(on); });
    addSwitch(form, "The disk is full", [](bool on) { setDiskFull(on); });
    addSwitch(form, "Defaults can’t be stored", [&mac](bool on) { mac.failDefaults(on); });
    return box;
}

QGroupBox* activityGroup(SimulatedControls& mac) {
    auto* box = new QGroupBox("Asked of the desktop");
    auto* form = formIn(box);
    auto *opened = new QLabel, *copied = new QLabel, *checks = new QLabel, *tones = new QLabel;
    form->addRow("Last page opened", opened);
    form->addRow("Pasteboard", copied);
    form->addRow("Handed to the updater", checks);
    form->addRow("Tones played", tones);
    for (QLabel* label : {opened, copied, checks, tones}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    auto* timer = new QTimer(box);
    QObject::connect(timer, &QTimer::timeout, box, [=, &mac] {
        const auto first = [](const std::string& text) {
            return qt(text).section(u'\n', 0, 0).left(mostActivity);
        };
        opened->setText(mac.openedURLs().empty() ? QString() : first(mac.openedURLs().back()));
        copied->setText(first(mac.pasteboardText().value_or("")));
        checks->setText(QString::number(mac.updateChecks()));
        tones->setText(QString::number(mac.tones().size()));
    });
    timer->start(activityInterval);
    return box;
}

} // namespace tessivo::demo
