#pragma once

#include "platform/Capture.h"

namespace tessivo {

/// Tries a camera's device file as a program would that is to open it, and lets go of it at once. Nothing
/// where it opens and no other program streams from it. May wait for the device: never on the main thread.
std::optional<OpenFault> cameraFault(const std::string& file);

/// What the system's error number for such a file says.
OpenFault cameraFaultOf(int error);

} // namespace tessivo
