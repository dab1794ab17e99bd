#pragma once

#include <string>
#include <vector>

/// `tessivo-probe compare BEFORE AFTER [--as text|json]`: what differs between two report files.
namespace tessivo::CompareCommand {

/// The exit status of two reports that could be read and aren't one Mac on which nothing is worse and every
/// test that worked then works now.
inline constexpr int notConfirmed = 3;

/// Takes the words behind the command; gives 0 or `notConfirmed`. Throws UsageError for words that aren't
/// known, and whatever reading, decoding or writing throws.
int run(const std::vector<std::string>& words);

} // namespace tessivo::CompareCommand
