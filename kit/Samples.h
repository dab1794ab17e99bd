#pragma once

#include "kit/session/SessionState.h"

/// One ready-made machine and its fully answered session: for tests, benchmarks and pictures.
namespace tessivo::Samples {

MachineInfo machine();
SessionState session();
/// The same answers on another machine, with what its kind has.
SessionState session(const MachineInfo& machine);
std::string notes();

} // namespace tessivo::Samples
