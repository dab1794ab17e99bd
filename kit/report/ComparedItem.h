#pragma once

#include "kit/vocabulary/TestID.h"
#include "kit/vocabulary/TestStatus.h"

#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// How a thing stands in the later of two reports, the gravest first. `notConfirmed`: what the earlier report
/// says was not tested again.
enum class Change { worse, notConfirmed, changed, better, unchanged };
BOOST_DESCRIBE_ENUM(Change, worse, notConfirmed, changed, better, unchanged)

/// One thing that two reports speak of, in the words of each. A list of lines is empty where that report
/// doesn't tell of it.
struct ComparedItem {
    std::string name;           ///< "Keyboard", "Serial number"
    std::optional<TestID> test; ///< absent for a fact of the machine
    Change change = Change::unchanged;
    std::optional<std::string> remark; ///< "left out", "another drive?"
    std::optional<TestStatus> statusBefore;
    std::optional<TestStatus> statusAfter;
    std::vector<std::string> before; ///< "Works. Every key works (78 keys, plus 3 checks by hand)"
    std::vector<std::string> after;
    bool folded = false; ///< unchanged, and nothing in it that has to stay in sight

    bool operator==(const ComparedItem&) const = default;
};
BOOST_DESCRIBE_STRUCT(ComparedItem, (),
                      (name, test, change, remark, statusBefore, statusAfter, before, after, folded))

} // namespace tessivo
