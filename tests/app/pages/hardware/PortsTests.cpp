#include "app/controls/Button.h"
#include "app/controls/Stepper.h"
#include "app/pages/hardware/PortRow.h"
#include "tests/app/pages/PageFixture.h"

using namespace tessivo;
using namespace tessivo::pagetest;
using namespace std::chrono_literals;

namespace {

class PortsTests : public PageFixture {
protected:
    void openPorts() { open(Page::ports); }

    void plugStick(std::uint32_t location) { controls->plugUSB("Stick", 0x0951, 0x1666, location); }
    void plugHub(std::uint32_t location, std::int64_t vendor) {
        controls->plugUSB("Hub", vendor, 0x2812, location, 9);
    }

    /// The slots as the page shows them, "Stick / Not tried".
    QString slotsShown() {
        QStringList texts;
        const QStringList all = shownTexts(view.get());
        for (const PortSlot& slot : state().ports.slots) {
            const int at = int(all.indexOf(QString::fromStdString(slot.title())));
            texts << (at >= 0 && at + 1 < all.size() ? all[at + 1] : QStringLiteral("?"));
        }
        return texts.join(QStringLiteral(" / "));
    }
};

} // namespace

TEST_F(PortsTests, oneStickWalksThroughAllPorts) {
    plugStick(0x01100000);
    openPorts();
    pass(1s);
    EXPECT_EQ(slotsShown(), "Waiting: plug a device into this port / Not tried")
        << "what is in place ticks nothing";
    EXPECT_TRUE(controls->unplugUSB(0x01100000));
    pass(1s);
    plugStick(0x01100000);
    pass(1s);
    EXPECT_EQ(slotsShown(), "Stick / Waiting: plug a device into this port");
    EXPECT_TRUE(controls->unplugUSB(0x01100000));
    pass(1s);
    plugStick(0x02100000);
    pass(1s);
    EXPECT_EQ(slotsShown(), "Stick / Stick");
    EXPECT_TRUE(shown("All 2 ports worked"));
    EXPECT_FALSE(state().ports.active);
}

TEST_F(PortsTests, ofAHubWithAKeyboardTheKeyboardIsCreditedAndAnAppleHubAloneIsNot) {
    openPorts();
    plugHub(0x01100000, 1452);
    pass(1s);
    EXPECT_EQ(slotsShown(), "Waiting: plug a device into this port / Not tried");
    plugHub(0x02100000, 0x0424);
    controls->plugUSB("Keyboard", 0x046d, 0xc31c, 0x02110000);
    pass(1s);
    EXPECT_EQ(slotsShown(), "Keyboard / Waiting: plug a device into this port");
    EXPECT_FALSE(shown("Hub")) << "hubs are left out of what is connected";
    EXPECT_TRUE(press("Show hubs (including the Mac's own)"));
    EXPECT_TRUE(shown("Hub"));
}

TEST_F(PortsTests, aPortWithNothingIsToldAndCanBeTestedAgain) {
    openPorts();
    EXPECT_TRUE(press("Nothing Shows Up, Port 1"));
    EXPECT_EQ(slotsShown(), "Nothing showed up / Waiting: plug a device into this port");
    EXPECT_TRUE(shown("Nothing showed up on Port 1"));
    EXPECT_EQ(findByName<Button>(view.get(), "Nothing Shows Up, Port 1"), nullptr);
    EXPECT_TRUE(press("Test This Port, Port 1"));
    plugStick(0x01100000);
    pass(1s);
    EXPECT_EQ(slotsShown(), "Stick / Waiting: plug a device into this port");
    EXPECT_EQ(findByName<Button>(view.get(), "Test This Port, Port 1"), nullptr)
        << "a ticked port has no buttons";
}

TEST_F(PortsTests, theCountStopsAtOneAndEightAndDropsWhatTheLastSlotsHeld) {
    openPorts();
    auto* stepper = findByName<Stepper>(view.get(), "Ports on this Mac: 2");
    ASSERT_NE(stepper, nullptr);
    for (int i = 0; i < 10; ++i)
        Q_EMIT stepper->stepped(std::min(stepper->value() + 1, 8));
    EXPECT_EQ(state().ports.slots.size(), 8u);
    EXPECT_TRUE(shown("Ports on this Mac: 8"));
    plugStick(0x01100000);
    pass(1s);
    Q_EMIT stepper->stepped(1);
    settle();
    EXPECT_EQ(slotsShown(), "Stick");
    EXPECT_TRUE(shown("All 1 ports worked"));
    EXPECT_TRUE(press("Clear"));
    EXPECT_EQ(slotsShown(), "Waiting: plug a device into this port");
    EXPECT_EQ(state().ports.slots.size(), 1u);
}

TEST_F(PortsTests, comingBackTakesTheBaselineAnew) {
    openPorts();
    pass(1s);
    close();
    plugStick(0x01100000);
    pass(5s);
    EXPECT_FALSE(state().ports.slots[0].device) << "nothing is read while the page is closed";
    openPorts();
    pass(3s);
    EXPECT_FALSE(state().ports.slots[0].device);
}

TEST_F(PortsTests, anOpenPageWritesOnlyWhenSomethingChanged) {
    openPorts();
    pass(3s);
    const auto writes = controls->defaultsWrites();
    pass(60s);
    EXPECT_EQ(controls->defaultsWrites(), writes);
}

TEST_F(PortsTests, aSessionOfAHundredThousandSlotsIsKeptAndItsFirstAreShown) {
    PortChecklist stored;
    for (std::int64_t id = 1; id <= 100'000; ++id)
        stored.slots.push_back({.id = id + 10, .answer = ManualAnswer::problem});
    model->change([&](SessionState& session) { session.ports = stored; });
    openPorts();
    EXPECT_EQ(view->findChildren<PortRow*>().size(), 64);
    EXPECT_EQ(state().ports.slots, stored.slots);
    EXPECT_TRUE(press("Test This Port, Port 12"));
    EXPECT_EQ(state().ports.active, 12);
}

TEST_F(PortsTests, clearedRowsStandForTheirNewPorts) {
    model->change([&](SessionState& session) {
        session.ports.slots = {{.id = 7, .answer = ManualAnswer::problem}, {.id = 9}};
    });
    openPorts();
    EXPECT_TRUE(press("Clear"));
    EXPECT_TRUE(press("Test This Port, Port 2"));
    EXPECT_EQ(state().ports.active, 2);
    EXPECT_TRUE(press("Nothing Shows Up, Port 2"));
    EXPECT_EQ(state().ports.slots[1].answer, ManualAnswer::problem);
}

TEST_F(PortsTests, twoHundredDevicesOfOddNamesAreListed) {
    openPorts();
    for (std::uint32_t i = 0; i < 200; ++i)
        controls->plugUSB("Device \xff\n" + std::string(i, 'x'), i, i, 0x03000000 + i);
    pass(1s);
    EXPECT_EQ(state().ports.known.size(), 200u);
    EXPECT_TRUE(clippedControls(view.get()).isEmpty())
        << clippedControls(view.get()).join("\n").toStdString();
}
