#pragma once

#include "platform/Capture.h"

/// The system's two questions about microphones and cameras.
namespace tessivo::MacPrivacy {

/// The system's own number, see `MacCaptureDevices::status`.
std::int64_t authorizationStatus(MediaType type);
/// Asks the person where they haven't answered yet. The answer comes on any thread, at any time.
void requestAccess(MediaType type, std::function<void(bool)> answer);

} // namespace tessivo::MacPrivacy
