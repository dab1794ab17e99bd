#include "tests/app/model/AppModelFixture.h"

using namespace tessivo;
using namespace std::chrono_literals;

namespace {

/// One stick with the application's defaults, which goes from Mac to Mac.
class SetAsideTests : public AppModelTests {
protected:
    /// The next launch is on the Mac with this Wi-Fi address; none of them tells its serial number.
    void moveTo(const char* address) {
        letGo();
        controls.breakReading(SimulatedReading::serial);
        controls.setHardwareKeys(HardwareKeys{.wifi = {address}});
    }
    void work(ActivationLockAnswer answer, const char* notes) {
        model().change([=](SessionState& state) { state.activationLock = answer; });
        model().setNotes(notes);
    }
    /// Whose work the model holds: the notes where the session is that of the notes.
    std::string shown() {
        const auto answer = model().state().activationLock;
        const bool fits = answer == (model().notes() == "a"   ? ActivationLockAnswer::disabled
                                     : model().notes() == "b" ? ActivationLockAnswer::enabled
                                                              : ActivationLockAnswer::unanswered);
        return fits ? model().notes() : "mixed";
    }
    void workOn(const char* address) {
        moveTo(address);
        work(*address == 'a' ? ActivationLockAnswer::disabled : ActivationLockAnswer::enabled, address);
        clock.advance(1s);
    }
};

TEST_F(SetAsideTests, eachMacGetsItsOwnSessionBack) {
    workOn("a");
    workOn("b");
    for (const char* address : {"a", "b", "b", "a", "c", "a", "b"}) {
        moveTo(address);
        EXPECT_EQ(shown(), *address == 'c' ? "" : address);
        model().persist();
    }
    moveTo("a");
    model().reset();
    model().persist();
    moveTo("b");
    EXPECT_EQ(shown(), "b");
    model().persist();
    moveTo("a");
    EXPECT_EQ(shown(), "") << "what was started over stays so";
}

TEST_F(SetAsideTests, untilASaveNothingHasMoved) {
    workOn("a");
    const std::string before = stored();
    moveTo("b");
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(stored(), before);
    moveTo("a");
    EXPECT_EQ(shown(), "a") << "the first launch on b ended before its save";

    moveTo("b");
    controls.failDefaults(true);
    work(ActivationLockAnswer::enabled, "b");
    clock.advance(1s);
    controls.failDefaults(false);
    work(ActivationLockAnswer::enabled, "b");
    clock.advance(1s);
    moveTo("a");
    EXPECT_EQ(shown(), "a") << "a save that failed is made good by the next";
}

TEST_F(SetAsideTests, aKeyThatIsUnknownForAWhileIsNotForgotten) {
    workOn("a");
    letGo();
    controls.setHardwareKeys(HardwareKeys{.drives = {"d"}});
    EXPECT_EQ(shown(), "a") << "no kind in common: the model decides";
    model().persist();
    moveTo("b");
    EXPECT_EQ(shown(), "");
    letGo();
    controls.setHardwareKeys(HardwareKeys{.drives = {"e"}});
    EXPECT_EQ(shown(), "");
}

TEST_F(SetAsideTests, aSessionStartedOverBelongsToThisMacAlone) {
    workOn("a");
    letGo();
    controls.setHardwareKeys(HardwareKeys{.drives = {"d"}});
    EXPECT_EQ(shown(), "a") << "a twin with no kind of key in common";
    model().reset();
    model().setNotes("twin");
    model().persist();
    letGo();
    controls.setHardwareKeys(HardwareKeys{.wifi = {"a"}, .drives = {"e"}});
    EXPECT_EQ(model().notes(), "");
}

TEST_F(SetAsideTests, aPlatformWithoutKeysStoresTheSessionAndTheNotesAlone) {
    store(answered());
    model().persist();
    EXPECT_EQ(mac.defaults().data("hardwareKeys"), std::nullopt);
    EXPECT_EQ(mac.defaults().data("sessionsSetAside"), std::nullopt);
}

TEST_F(SetAsideTests, whatIsStoredAndNoSessionIsNoHindrance) {
    workOn("a");
    workOn("b");
    mac.defaults().setData("session", "{");
    mac.defaults().setData("hardwareKeys", "[]");
    moveTo("a");
    EXPECT_EQ(shown(), "a");
    mac.defaults().setData("sessionsSetAside", "\xff");
    moveTo("b");
    EXPECT_EQ(shown(), "");
    model().persist();
    EXPECT_EQ(mac.defaults().data("sessionsSetAsideUnread"), "\xff");
    moveTo("c");
    model().persist();
    EXPECT_EQ(mac.defaults().data("sessionsSetAsideUnread"), "\xff") << "kept for as long as it takes";
}

TEST_F(SetAsideTests, whatCouldNotBeReadOnceIsReadByAVersionThatCan) {
    workOn("a");
    workOn("b");
    const std::string aside = mac.defaults().data("sessionsSetAside").value();
    mac.defaults().setData("sessionsSetAside", "of a newer version");
    workOn("c");
    mac.defaults().setData("sessionsSetAsideUnread", aside);
    moveTo("a");
    EXPECT_EQ(shown(), "a");
    model().persist();
    moveTo("c");
    EXPECT_EQ(model().notes(), "c") << "set aside since then";
    model().persist();
    EXPECT_EQ(mac.defaults().data("sessionsSetAsideUnread"), "") << "read once";
}

} // namespace
