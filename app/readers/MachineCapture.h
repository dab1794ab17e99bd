#pragma once

#include "platform/Platform.h"
#include "platform/simulated/MachineFile.h"

namespace tessivo {

/// Machine facts, registry and power sources as a machine file, with no sound, camera or tool in it.
MachineFile captureFacts(const MachineFacts& facts, const Registry& registry, const PowerSources& sources);

/// The raw facts of a computer as a machine file, ready to be replayed as a simulated one. What can't be
/// read is left out. Waits for the enrollment tool and for the sound server's devices: for a support
/// tool, never under a window.
MachineFile captureMachine(Platform& platform);

} // namespace tessivo
