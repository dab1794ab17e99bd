#include "app/controls/Button.h"
#include "app/controls/Stepper.h"
#include "app/pages/hardware/PortRow.h"
#include "tests/app/pages/PageFixture.h"

using namespace tessivo;
using namespace tessivo::pagetest;
using namespace std::chrono_literals;

namespace {

constexpr std::uint32_t first = 0x01100000, second = 0x02100000; ///< where devices are plugged in

class PortsTests : public PageFixture {
protected:
    /// One device comes, or goes, and the page has a second to notice.
    void plug(std::uint32_t location) {
        controls->plugUSB("Stick", 0x0951, 0x1666, location);
        pass(1s);
    }
    void unplug(std::uint32_t location) {
        EXPECT_TRUE(controls->unplugUSB(location));
        pass(1s);
    }
    void plugHub(std::uint32_t location, std::int64_t vendor) {
        controls->plugUSB("Hub", vendor, 0x2812, location, 9);
    }

    /// The slots as the page shows them, "Stick / Not tried".
    QString slotsShown() {
        QStringList texts;
        const QStringList all = shownTexts(view.get());
        for (const PortSlot& slot : state().ports.slots)
            texts << all.value(all.indexOf(QString::fromStdString(slot.title())) + 1);
        return texts.join(" / ");
    }
};

} // namespace

TEST_F(PortsTests, oneStickWalksThroughAllPorts) {
    controls->plugUSB("Stick", 0x0951, 0x1666, first);
    open(Page::ports);
    pass(1s);
    EXPECT_EQ(slotsShown(), "Waiting: plug a device into this port / Not tried")
        << "what is in place ticks nothing";
    unplug(first);
    plug(first);
    EXPECT_EQ(slotsShown(), "Stick / Waiting: plug a device into this port");
    unplug(first);
    plug(second);
    EXPECT_EQ(slotsShown(), "Stick / Stick");
    EXPECT_TRUE(shown("All 2 ports worked"));
    EXPECT_FALSE(state().ports.active);
}

TEST_F(PortsTests, ofAHubWithAKeyboardTheKeyboardIsCreditedAndAnAppleHubAloneIsNot) {
    open(Page::ports);
    plugHub(first, 1452);
    pass(1s);
    EXPECT_EQ(slotsShown(), "Waiting: plug a device into this port / Not tried");
    EXPECT_TRUE(shown("No USB devices connected.")) << "hubs are left out";
    plugHub(second, 0x0424);
    controls->plugUSB("Keyboard", 0x046d, 0xc31c, second + 0x10000);
    pass(1s);
    EXPECT_EQ(slotsShown(), "Keyboard / Waiting: plug a device into this port");
    EXPECT_FALSE(shown("Hub"));
    EXPECT_TRUE(press("Show hubs (including the Mac's own)"));
    EXPECT_TRUE(shown("Hub"));
}

TEST_F(PortsTests, aPortWithNothingIsToldAndCanBeTestedAgain) {
    open(Page::ports);
    EXPECT_TRUE(press("Nothing Shows Up, Port 1"));
    EXPECT_EQ(slotsShown(), "Nothing showed up / Waiting: plug a device into this port");
    EXPECT_TRUE(shown("Nothing showed up on Port 1"));
    EXPECT_FALSE(press("Nothing Shows Up, Port 1"));
    EXPECT_TRUE(press("Test This Port, Port 1"));
    plug(first);
    EXPECT_EQ(slotsShown(), "Stick / Waiting: plug a device into this port");
    EXPECT_FALSE(press("Test This Port, Port 1")) << "a ticked port has no buttons";
}

TEST_F(PortsTests, theCountStopsAtOneAndEightAndDropsWhatTheLastSlotsHeld) {
    open(Page::ports);
    auto* stepper = findByName<Stepper>(view.get(), "Ports on this Mac: 2");
    ASSERT_NE(stepper, nullptr);
    EXPECT_EQ(stepper->width(), 260);
    EXPECT_FALSE(findByName<Button>(view.get(), "Clear")->isEnabled());
    Q_EMIT stepper->stepped(9);
    EXPECT_EQ(state().ports.slots.size(), 8u);
    EXPECT_TRUE(shown("Ports on this Mac: 8"));
    plug(first);
    Q_EMIT stepper->stepped(0);
    settle();
    EXPECT_EQ(slotsShown(), "Stick");
    EXPECT_TRUE(shown("All 1 ports worked"));
    EXPECT_TRUE(press("Clear"));
    EXPECT_EQ(slotsShown(), "Waiting: plug a device into this port");
}

TEST_F(PortsTests, aClosedPageReadsNothingAndAnOpenOneWritesOnlyWhatChanged) {
    open(Page::ports);
    pass(3s);
    const auto writes = controls->defaultsWrites();
    pass(60s);
    EXPECT_EQ(controls->defaultsWrites(), writes);
    close();
    plug(first);
    pass(5s);
    EXPECT_FALSE(state().ports.slots[0].device);
    open(Page::ports);
    pass(3s);
    EXPECT_FALSE(state().ports.slots[0].device) << "the baseline is taken anew";
}

TEST_F(PortsTests, aHundredThousandStoredSlotsAreKeptAndTheirFirstShownUntilCleared) {
    PortChecklist stored;
    for (std::int64_t id = 1; id <= 100'000; ++id)
        stored.slots.push_back({.id = id + 10, .answer = ManualAnswer::problem});
    model->change([&](SessionState& session) { session.ports = stored; });
    open(Page::ports);
    EXPECT_EQ(view->findChildren<PortRow*>().size(), 64);
    EXPECT_EQ(state().ports.slots, stored.slots);
    EXPECT_TRUE(press("Test This Port, Port 12"));
    EXPECT_EQ(state().ports.active, 12);
    EXPECT_TRUE(press("Clear"));
    EXPECT_TRUE(press("Test This Port, Port 2"));
    EXPECT_EQ(state().ports.active, 2) << "the rows stand for their new ports";
}

TEST_F(PortsTests, twoHundredDevicesOfOddNamesAreListed) {
    open(Page::ports);
    for (std::uint32_t i = 0; i < 200; ++i)
        controls->plugUSB("Device \xff\n" + std::string(i, 'x'), i, i, 0x03000000 + i);
    pass(1s);
    EXPECT_EQ(state().ports.known.size(), 200u);
    EXPECT_EQ(clippedControls(view.get()).join("\n"), "");
}
