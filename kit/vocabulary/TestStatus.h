#pragma once

#include "kit/support/Describe.h"

namespace tessivo {

/// How a test came out. The case name is the raw value.
enum class TestStatus { notRun, unfinished, works, problem, checkByHand, notIncluded };
BOOST_DESCRIBE_ENUM(TestStatus, notRun, unfinished, works, problem, checkByHand, notIncluded)

/// The colour family of a status.
enum class Tint { secondary, blue, green, red, orange };

/// The word shown to people: "Check by hand".
const char* label(TestStatus status);
const char* symbol(TestStatus status);
Tint tint(TestStatus status);

/// True for works, problem and notIncluded.
bool isDone(TestStatus status);

} // namespace tessivo
