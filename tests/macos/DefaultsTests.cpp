#include "tests/macos/MacFixture.h"

namespace tessivo {
namespace {

class MacDefaultsTest : public Mac {
protected:
    StandIn::Object* stored(const std::string& key) {
        const auto found = system.storedPreferences.find({"test.tessivo", key});
        return found == system.storedPreferences.end() ? nullptr : found->second;
    }
    MacDefaults defaults{"test.tessivo"};
};

TEST_F(MacDefaultsTest, keepsDataAndTextsUnderItsOwnName) {
    EXPECT_EQ(defaults.data("session"), std::nullopt);
    const std::string bytes("{\"a\":\0\xff}", 8);
    defaults.setData("session", bytes);
    EXPECT_FALSE(defaults.setText("notes", "N\xC3\xB6tig \xF0\x9F\x94\x8A"));
    EXPECT_EQ(MacDefaults("test.tessivo").data("session"), bytes);
    EXPECT_EQ(MacDefaults("test.tessivo").text("notes"), "N\xC3\xB6tig \xF0\x9F\x94\x8A");
    EXPECT_EQ(MacDefaults("test.other").data("session"), std::nullopt);
    EXPECT_EQ(stored("session")->bytes, bytes);
    defaults.setData("session", "");
    EXPECT_EQ(defaults.data("session"), "");
}

TEST_F(MacDefaultsTest, aValueOfAnotherTypeIsAbsentAndStays) {
    for (const Property& odd : {Property("text"), Property(5), Property(true), Property(PropertyMap{})}) {
        StandIn::Object* object = system.keep(odd);
        system.preferences[{"test.tessivo", "session"}] = object;
        EXPECT_EQ(defaults.data("session"), std::nullopt);
        EXPECT_EQ(system.preferences.at({"test.tessivo", "session"}), object);
    }
    defaults.setData("notes", "bytes");
    EXPECT_EQ(defaults.text("notes"), std::nullopt);
}

TEST_F(MacDefaultsTest, aWriteThatFailsLeavesWhatWasThere) {
    defaults.setData("session", "old");
    system.beforeCall = [&](int number, const std::string& call) {
        if (call == "CFPreferencesSynchronize") system.failCall(number), system.beforeCall = nullptr;
    };
    EXPECT_TRUE(defaults.setData("session", "new"));
    EXPECT_EQ(defaults.data("session"), "old");
    EXPECT_EQ(stored("session")->bytes, "old");
    // Several at once: all or none.
    const auto write = [&](const std::string& value) {
        defaults.set(
            {{"session", DefaultsEntry::Kind::data, value}, {"notes", DefaultsEntry::Kind::text, value}});
    };
    const int before = system.calls();
    write("a");
    EXPECT_EQ(stored("session")->bytes, "a");
    EXPECT_EQ(stored("notes")->text, u"a");
    const int calls = system.calls() - before;
    for (int call = 0; call < calls; ++call) {
        write("old");
        system.failCall(system.calls() + call);
        write("new");
        system.failCall(-1);
        EXPECT_EQ(defaults.data("session"), defaults.text("notes")) << call;
        EXPECT_EQ(stored("session")->bytes, defaults.data("session")) << call;
    }
    write("n");
    defaults.set(
        {{"notes", DefaultsEntry::Kind::text, "kept"}, {"other", DefaultsEntry::Kind::text, "\xff"}});
    EXPECT_EQ(defaults.text("notes"), "n");
    // No text at all: nothing is written.
    EXPECT_TRUE(defaults.setText("notes", "\xff"));
    EXPECT_EQ(defaults.text("notes"), "n");
}

} // namespace
} // namespace tessivo
