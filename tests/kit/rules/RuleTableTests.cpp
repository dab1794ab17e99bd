#include "kit/rules/Rules.h"
#include "kit/support/PropertyJson.h"
#include "tests/kit/rules/Printed.h"

#include <fstream>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

/// One case of tests/data/rules: a test, what its session holds beyond a new one's, and what a person reads.
struct Case {
    std::string test;
    std::string json;
    std::string expected;
};

std::vector<Case> cases() {
    std::ifstream file(TESSIVO_TEST_DATA "/rules/results.txt");
    std::vector<Case> all;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("  ")) {
            std::string& expected = all.back().expected;
            expected += (expected.empty() ? "" : " | ") + line.substr(2);
        } else if (const std::size_t blank = line.find(" {"); blank != std::string::npos) {
            all.push_back({line.substr(0, blank), line.substr(blank + 1), {}});
        }
    }
    return all;
}

void merge(PropertyMap& into, const PropertyMap& changes) {
    for (const auto& [key, value] : changes) {
        const auto* inner = std::get_if<PropertyMap>(&value.value);
        auto* old = std::get_if<PropertyMap>(&into[key].value);
        if (inner && old)
            merge(*old, *inner);
        else
            into[key] = value;
    }
}

/// A new session of a laptop, changed; it is read as a stored one is.
SessionState session(const std::string& json) {
    MachineInfo machine;
    machine.modelID = "Mac14,2";
    PropertyMap map = parsePropertyMap(SessionState(machine, Date{}).encode());
    merge(map, parsePropertyMap(json));
    return SessionState::decode(prettyText(map));
}

TEST(RuleTable, everyRuleSaysWhatTheTableSays) {
    const std::vector<Case> all = cases();
    std::set<TestID> seen;
    for (const Case& one : all) {
        const auto test = fromRawValue<TestID>(one.test);
        ASSERT_TRUE(test) << one.test;
        seen.insert(*test);
        const TestResult result = Rules::result(*test, session(one.json));
        EXPECT_EQ(printed(result), one.expected) << one.test << " " << one.json;
        EXPECT_EQ(result.test, *test);
    }
    EXPECT_EQ(seen.size(), allCases<TestID>().size());
}

} // namespace
} // namespace tessivo
