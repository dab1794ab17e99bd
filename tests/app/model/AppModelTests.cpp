#include "kit/rules/Rules.h"
#include "tests/app/model/AppModelFixture.h"

#include <QSignalSpy>
#include <gmock/gmock.h>

using namespace tessivo;
using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

TEST_F(AppModelTests, aFirstLaunchBeginsANewSessionAndStoresNothing) {
    EXPECT_EQ(model().state(), SessionState(model().state().machine, clock.now()));
    EXPECT_EQ(model().state().machine.serial, "FK2X91TQ7W");
    EXPECT_EQ(model().notes(), "");
    EXPECT_EQ(model().page(), Page::overview);
    clock.advance(1h);
    EXPECT_EQ(controls.defaultsWrites(), 0u);
}

TEST_F(AppModelTests, aSessionComesBackOnlyToTheMacItWasMadeOn) {
    struct Row {
        std::optional<std::string> before, now;
        bool restored;
    };
    const Row rows[] = {{"FK2X91TQ7W", "FK2X91TQ7W", true},  {"OTHER00001", "FK2X91TQ7W", false},
                        {"fk2x91tq7w", "FK2X91TQ7W", false}, {"", "FK2X91TQ7W", false},
                        {std::nullopt, "FK2X91TQ7W", false}, {"FK2X91TQ7W", std::nullopt, false},
                        {std::nullopt, std::nullopt, true}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.before.value_or("absent") + " to " + row.now.value_or("absent"));
        letGo();
        controls.mendReading(SimulatedReading::serial);
        if (!row.now) controls.breakReading(SimulatedReading::serial);
        SessionState before = answered();
        before.machine.serial = row.before;
        before.machine.memoryBytes = 1;
        before.machine.osVersion = "macOS 1";
        before.machine.storageBytes.reset();
        store(before);
        const std::string bytes = stored();

        if (!row.restored) {
            EXPECT_EQ(model().state(), SessionState(model().state().machine, clock.now()));
            EXPECT_EQ(model().notes(), "");
            EXPECT_EQ(stored(), bytes) << "what was stored stays until the first save";
            continue;
        }
        EXPECT_EQ(model().notes(), "kept");
        EXPECT_EQ(model().state().machine.osVersion, "macOS 15.3.1 (24D70)");
        EXPECT_EQ(model().state().machine.memoryBytes, 17179869184u);
        EXPECT_EQ(model().state().machine.storageBytes, 245107195904);
        SessionState restored = model().state();
        restored.machine = before.machine;
        EXPECT_EQ(restored, before);
    }
}

TEST_F(AppModelTests, storedBytesThatAreNoSessionBeginANewOne) {
    const std::string whole = answered().encode();
    for (const std::string& bytes :
         {std::string(), std::string("\0", 1), whole.substr(0, whole.size() / 2), whole + whole,
          std::string(10'000'000, 'x'), std::string(100'000, '[') + std::string(100'000, ']')}) {
        SCOPED_TRACE(bytes.substr(0, 80));
        letGo();
        mac.defaults().setData("session", bytes);
        mac.defaults().setText("notes", "of another session");
        EXPECT_EQ(model().state(), SessionState(model().state().machine, clock.now()));
        EXPECT_EQ(model().notes(), "");
        EXPECT_EQ(stored(), bytes);
    }
}

TEST_F(AppModelTests, theMomentOfTheStartSurvivesLaunchesToTheLastBit) {
    SessionState session = answered();
    session.started = Date{726'105'612.12345678};
    store(session);
    for (int launch = 0; launch < 10; ++launch) {
        letGo();
        model().persist();
    }
    EXPECT_EQ(SessionState::decode(stored()).started, session.started);
}

TEST_F(AppModelTests, aBurstOfWritesIsStoredOnceOneSecondAfterTheLast) {
    for (int round = 0; round < 5; ++round) {
        model().setNotes("note " + std::to_string(round));
        clock.advance(500ms);
    }
    EXPECT_EQ(controls.defaultsWrites(), 0u);
    clock.advance(499ms);
    EXPECT_EQ(controls.defaultsWrites(), 0u);
    clock.advance(1ms);
    EXPECT_EQ(controls.defaultsWrites(), 2u); // the session and the notes
    EXPECT_EQ(mac.defaults().text("notes"), "note 4");
    EXPECT_EQ(SessionState::decode(stored()), model().state());
    clock.advance(1h);
    EXPECT_EQ(controls.defaultsWrites(), 2u);
}

TEST_F(AppModelTests, anEqualWriteIsStoredButToldToNobody) {
    QSignalSpy state(&model(), &AppModel::stateChanged), notes(&model(), &AppModel::notesChanged),
        page(&model(), &AppModel::pageChanged), sheet(&model(), &AppModel::showWriteUpChanged),
        message(&model(), &AppModel::messageChanged), history(&model(), &AppModel::historyChanged);
    model().setState(model().state());
    clock.advance(1s);
    EXPECT_EQ(controls.defaultsWrites(), 2u);
    model().setNotes("");
    clock.advance(1s);
    EXPECT_EQ(controls.defaultsWrites(), 4u);
    model().setPage(Page::overview);
    model().setShowWriteUp(false);
    model().setMessage(std::nullopt);
    model().refreshHistory();
    for (const QSignalSpy* spy : {&state, &notes, &page, &sheet, &message, &history})
        EXPECT_EQ(spy->count(), 0);

    model().setPage(std::nullopt);
    model().setShowWriteUp(true);
    model().setMessage("said");
    clock.advance(1h);
    EXPECT_EQ(controls.defaultsWrites(), 4u) << "the page and what the window shows are never stored";
    model().change([](SessionState& s) { s.activationLock = ActivationLockAnswer::disabled; });
    model().setNotes("a note");
    for (const QSignalSpy* spy : {&state, &notes, &page, &sheet, &message})
        EXPECT_EQ(spy->count(), 1);
}

TEST_F(AppModelTests, aStoreThatFailsLeavesWhatWasStoredAndTheNextSaveHolds) {
    const std::string told =
        "Couldn't save your answers: there is no room on the disk. Tessivo tries again at "
        "the next change.";
    store(answered(), "before");
    const auto save = [this](const std::string& notes) {
        model().setNotes(notes);
        clock.advance(1s);
        return mac.defaults().text("notes");
    };
    controls.failDefaults(true);
    EXPECT_EQ(save("after"), "before");
    EXPECT_EQ(model().message(), told);
    model().setMessage("Copied.");
    EXPECT_EQ(save("and on"), "before");
    EXPECT_EQ(model().message(), "Copied.") << "one cause is told once";
    controls.failDefaults(false);
    EXPECT_EQ(save("after that"), "after that");
    EXPECT_EQ(model().message(), "Copied.");

    controls.failDefaults(true);
    save("lost");
    EXPECT_EQ(model().message(), told) << "a new failure";
    controls.failDefaults(false);
    EXPECT_EQ(save("kept"), "kept");
    EXPECT_EQ(model().message(), std::nullopt) << "it is true no more";
}

TEST_F(AppModelTests, errorsComeDownToWhatAPersonCanMend) {
    using enum SaveFault;
    const std::pair<int, SaveFault> rows[] = {{ENOSPC, noRoom},     {EDQUOT, noRoom},    {EFBIG, noRoom},
                                              {EACCES, notAllowed}, {EPERM, notAllowed}, {EROFS, notAllowed},
                                              {EIO, other},         {ENOENT, other},     {EISDIR, other}};
    for (const auto& [error, fault] : rows)
        EXPECT_EQ(saveFault(std::system_error(error, std::generic_category())), fault) << error;
    EXPECT_EQ(saveFault(std::invalid_argument("not a number")), other);
}

TEST_F(AppModelTests, theRulesAreAskedOnceForAChange) {
    const auto* first = &model().results();
    EXPECT_EQ(model().results(), Rules::results(model().state()));
    const auto* data = first->data();
    model().status(Page::overview);
    model().doneCount();
    EXPECT_EQ(model().results().data(), data) << "of one state they stay";
    model().change([](SessionState& state) { state.activationLock = ActivationLockAnswer::enabled; });
    EXPECT_EQ(model().results(), Rules::results(model().state())) << "of another they are made anew";
    EXPECT_EQ(model().result(TestID::ethernet), Rules::result(TestID::ethernet, model().state()))
        << "no test of a laptop, and still asked for";
}

TEST_F(AppModelTests, withoutAnApplicationSupportFolderThereIsNoModel) {
    SimulatedPlatform homeless(loadMachineFile(TESSIVO_MACHINES "/macbook-air-m2.json"), clock,
                               {.applicationSupport = std::vector<std::filesystem::path>{}});
    EXPECT_THROW(AppModel{homeless}, std::runtime_error);
}

// Statuses

TEST_F(AppModelTests, aPageShowsTheWorstOfItsTests) {
    using S = TestStatus;
    using Lock = ActivationLockAnswer;
    const EnrollmentStatus clean{.mdmDetail = "No"}, managed{.mdmEnrolled = true, .mdmDetail = "Yes"};
    struct Row {
        const char* what;
        std::optional<EnrollmentStatus> enrollment;
        bool checked;
        Lock lock;
        std::set<TestID> leftOut;
        S expected;
    };
    const Row rows[] = {
        {"nothing read", {}, false, Lock::disabled, {}, S::notRun},
        {"nothing read, lock open", {}, false, Lock::unanswered, {}, S::checkByHand},
        {"unreadable", {}, true, Lock::disabled, {}, S::checkByHand},
        {"managed among hand checks", managed, true, Lock::unanswered, {}, S::problem},
        {"locked", clean, true, Lock::enabled, {}, S::problem},
        {"all well", clean, true, Lock::disabled, {}, S::works},
        {"one left out", clean, true, Lock::disabled, {TestID::identity}, S::works},
        {"the bad one left out", managed, true, Lock::disabled, {TestID::enrollment}, S::works},
        {"all left out",
         {},
         false,
         Lock::unanswered,
         {TestID::identity, TestID::enrollment, TestID::activationLock},
         S::notIncluded},
    };
    for (const Row& row : rows) {
        model().change([&](SessionState& state) {
            state.enrollment = row.enrollment;
            state.enrollmentChecked = row.checked;
            state.activationLock = row.lock;
            state.overrides.clear();
            for (const TestID test : row.leftOut)
                state.overrides[test] = {.notIncluded = true};
        });
        EXPECT_EQ(model().status(Page::overview), row.expected) << row.what;
    }
    for (const Page page : {Page::report, Page::pickup, Page::history, Page::handover})
        EXPECT_EQ(model().status(page), std::nullopt);
    model().setState(answered());
    for (const Page page : AppModel::testPages(std::nullopt))
        EXPECT_EQ(model().status(page), model().result(tests(page).front()).status);
}

TEST_F(AppModelTests, doneCountsVerdictsAndNotWhatIsLeftToAPerson) {
    EXPECT_EQ(model().state().tests().size(), 13u);
    EXPECT_EQ(model().doneCount(), 2); // its identity, and a storage size this model was sold with
    model().change([](SessionState& state) { state.activationLock = ActivationLockAnswer::enabled; });
    EXPECT_EQ(model().doneCount(), 3);
    model().change([](SessionState& state) {
        state.overrides[TestID::cameras] = {.notIncluded = true};
        state.overrides[TestID::ethernet] = {.notIncluded = true}; // no test of a laptop
    });
    EXPECT_EQ(model().doneCount(), 4);
}

TEST_F(AppModelTests, onlyALaptopGoesWithoutThePageOfTheEthernetPort) {
    EXPECT_EQ(AppModel::testPages(MacKind::laptop).size(), 10u);
    for (const auto kind :
         {std::optional(MacKind::desktop), std::optional(MacKind::allInOne), std::optional<MacKind>()}) {
        const auto pages = AppModel::testPages(kind);
        EXPECT_EQ(pages.size(), 11u);
        EXPECT_EQ(pages.front(), Page::keyboard);
        EXPECT_EQ(pages[8], Page::ethernet);
        EXPECT_EQ(pages.back(), Page::battery);
    }
}

} // namespace
