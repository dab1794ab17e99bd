#pragma once

#include <string>
#include <vector>

/// The commands of `tessivo-probe`: `machine`, `report`, `guard`, `history` and `compare`.
namespace tessivo::ProbeCommands {

/// Runs one command and gives the exit status: 0, or 1 after a fault, or 2 after wrong usage, and of
/// `compare` 3 where the reports could be read and don't agree. A fault is
/// one line on standard error that names the file and what is wrong. Text on standard output ends with a
/// line feed; a file of `--output` holds the exact text and is replaced whole or left as it was.
int run(const std::vector<std::string>& arguments);

} // namespace tessivo::ProbeCommands
