#pragma once

#include "kit/vocabulary/TestID.h"
#include "kit/vocabulary/TestStatus.h"

#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// One test's outcome in words, as the rules make it and the report keeps it.
struct TestResult {
    TestID test{};
    TestStatus status{};
    std::string summary;
    std::vector<std::string> details;
    std::optional<std::string> note;

    bool operator==(const TestResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(TestResult, (), (test, status, summary, details, note))

/// The first result of the test, or null.
inline const TestResult* resultOf(TestID test, const std::vector<TestResult>& results) {
    for (const TestResult& result : results)
        if (result.test == test) return &result;
    return nullptr;
}

} // namespace tessivo
