#pragma once

#include "platform/linux/SystemTree.h"

/// What the kernel tells of sound hardware and cameras, whether or not anything can list them. A Mac whose
/// microphone or camera has no driver isn't one without. Short; any thread.
namespace tessivo::CaptureHardware {

/// The kernel has made a card of sound hardware; a sound server should show it.
bool hasSoundCard(const SystemTree& tree);
/// A laptop or an all-in-one, with a card that takes sound in: its own microphone is there, whether or not a
/// sound server shows an input.
bool hasOwnMicrophone(const SystemTree& tree);
/// Sound hardware is there that would take sound in, and has no driver. For a computer that shows no
/// microphone: a Mac with Apple silicon and a screen always has one, and its drivers alone can be missing.
bool hasSoundWithoutDriver(const SystemTree& tree);
/// A camera is there and has no driver.
bool hasCameraWithoutDriver(const SystemTree& tree);
/// The file of a camera is made by a program, not by hardware. `name` as in "video0".
bool isVirtualCamera(const SystemTree& tree, const std::string& name);

} // namespace tessivo::CaptureHardware
