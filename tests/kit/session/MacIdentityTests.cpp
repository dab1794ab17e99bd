#include "kit/session/SessionShelf.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using Serial = std::optional<std::string>;

const Serial none;
const HardwareKeys noKeys;
const HardwareKeys wifi{.wifi = {"a"}}, otherWiFi{.wifi = {"b"}};
const HardwareKeys drive{.drives = {"d"}}, bothDrives{.drives = {"d", "e"}};
const HardwareKeys both{.wifi = {"a"}, .drives = {"d"}}, otherDrive{.wifi = {"a"}, .drives = {"x"}};

TEST(MacIdentity, decidesWhoseASessionIs) {
    using enum MacMatch;
    struct Row {
        MacIdentity stored, current;
        MacMatch expected;
    };
    const Row rows[] = {
        // Two serial numbers decide, whatever else there is.
        {{"S", "M", wifi}, {"S", "N", otherWiFi}, sameSerial},
        {{"S", "M", wifi}, {"T", "M", wifi}, different},
        {{"", "M", {}}, {"S", "M", {}}, different},
        // A platform without keys: two absent ones are equal, one that came or went is another Mac.
        {{none, "M", {}}, {none, "N", {}}, nothingAgainst},
        {{none, "M", wifi}, {none, "N", {}}, nothingAgainst},
        {{"S", "M", {}}, {none, "M", {}}, different},
        {{none, "M", {}}, {"S", "M", {}}, different},
        // Without serial numbers: the kinds that are known on both sides.
        {{none, "M", wifi}, {none, "M", wifi}, sameAddress},
        {{none, "M", wifi}, {none, "M", otherWiFi}, different},
        {{none, "Unknown", wifi}, {none, "M", wifi}, sameAddress},
        {{none, "M", both}, {none, "M", wifi}, sameAddress},
        {{none, "M", HardwareKeys{.ethernet = {"n"}, .wifi = {"a"}}},
         {none, "M", HardwareKeys{.ethernet = {"o"}, .wifi = {"a"}}},
         different},
        // A drive that was replaced makes no other Mac; one that was moved doesn't take the session with it.
        {{none, "M", both}, {none, "M", otherDrive}, sameAddress},
        {{none, "M", both}, {none, "M", HardwareKeys{.wifi = {"b"}, .drives = {"d"}}}, different},
        {{none, "M", drive}, {none, "N", drive}, different},
        {{none, "M", drive}, {none, "M", bothDrives}, sameDrive},
        {{none, "M", both}, {none, "M", HardwareKeys{.drives = {"x"}}}, different},
        // None in common: the model.
        {{none, "M", wifi}, {none, "M", drive}, sameModel},
        {{none, "M", wifi}, {none, "N", drive}, different},
        {{none, "M", {}}, {none, "N", noKeys}, different},
        {{none, "M", {}}, {none, "M", wifi}, sameModel},
        {{none, "Unknown", wifi}, {none, "M", drive}, nothingAgainst},
        {{none, "M", noKeys}, {none, "Unknown", noKeys}, nothingAgainst},
        // A serial number that comes or goes.
        {{"S", "M", wifi}, {none, "M", wifi}, sameAddress},
        {{none, "M", wifi}, {"S", "M", both}, sameAddress},
        {{none, "M", wifi}, {"S", "N", wifi}, different},
        {{none, "Unknown", wifi}, {"S", "M", wifi}, sameAddress},
        {{none, "M", wifi}, {"S", "M", drive}, different},
        {{"S", "M", {}}, {none, "M", wifi}, different},
    };
    for (const Row& row : rows)
        EXPECT_EQ(compare(row.stored, row.current), row.expected) << "row " << &row - rows;
    EXPECT_EQ(merged(both, otherWiFi), (HardwareKeys{.wifi = {"b"}, .drives = {"d"}}));
}

ShelvedSession shelved(const std::string& session, const Serial& serial, const HardwareKeys& keys,
                       const std::string& model = "M") {
    return {serial, model, keys, session, "notes"};
}

TEST(SessionShelf, givesBackWhatMostSpeaksForThisMac) {
    SessionShelf shelf;
    for (const ShelvedSession& session :
         {shelved("old", none, wifi), shelved("new", none, wifi), shelved("drive", none, drive),
          shelved("model", none, noKeys), shelved("serial", "S", HardwareKeys{.wifi = {"s"}}),
          shelved("unknown", none, noKeys, "Unknown")})
        shelf.put(session);
    EXPECT_EQ(SessionShelf::decode(shelf.encode()), shelf);
    const auto found = [&](const MacIdentity& current) {
        const auto best = shelf.find(current);
        return best ? shelf.sessions[best->index].session : "-";
    };
    EXPECT_EQ(found({none, "M", wifi}), "new");
    EXPECT_EQ(found({none, "M", both}), "new") << "a drive can come from another Mac";
    EXPECT_EQ(found({"S", "N", wifi}), "serial");
    EXPECT_EQ(found({none, "M", otherWiFi}), "model");
    EXPECT_EQ(found({none, "N", HardwareKeys{.wifi = {"c"}}}), "-") << "nothing speaks for an unknown model";
    EXPECT_EQ(found({"T", "M", noKeys}), "-");
}

TEST(SessionShelf, isBoundedAndKeepsTheNewest) {
    SessionShelf shelf;
    for (std::size_t i = 0; i < SessionShelf::mostSessions + 6; ++i)
        shelf.put(shelved(std::to_string(i), none, noKeys));
    EXPECT_EQ(shelf.sessions.size(), SessionShelf::mostSessions);
    EXPECT_EQ(shelf.sessions.front().session, "6");
    shelf.put(shelved(std::string(SessionShelf::mostBytes - 100, 'x'), none, noKeys));
    EXPECT_LT(shelf.sessions.size(), 20u);
    EXPECT_GT(shelf.sessions.size(), 1u);
    shelf.put(shelved(std::string(2 * SessionShelf::mostBytes, 'y'), none, noKeys));
    EXPECT_EQ(shelf.sessions.size(), 1u);
    EXPECT_EQ(SessionShelf::decode("{\"sessions\":[{}]}"), std::nullopt);
}

} // namespace
} // namespace tessivo
