#pragma once

#include "kit/hardware/AudioOutputInfo.h"
#include "kit/hardware/BatteryReading.h"
#include "kit/hardware/EnrollmentStatus.h"
#include "kit/hardware/MachineInfo.h"
#include "kit/hardware/RegistryNames.h"
#include "kit/hardware/USBDevice.h"
#include "kit/session/EthernetTest.h"
#include "platform/AudioObjects.h"
#include "platform/MachineFacts.h"
#include "platform/Registry.h"
#include "platform/SystemTools.h"

namespace tessivo {

/// Each reader asks the platform for raw facts and hands them to the kit. None fails as a whole: what
/// can't be read is absent or takes its stated fallback. All but the enrollment reader are short and
/// run on the main thread.

std::optional<std::string> sysctlText(const MachineFacts& facts, const std::string& name);
std::optional<std::string> readSerial(const Registry& registry);
std::optional<std::int64_t> readStartupCapacity(const MachineFacts& facts);
MachineInfo readMachineInfo(const MachineFacts& facts, const Registry& registry);

/// The system's tool that tells of device management, and what it is asked.
inline constexpr const char* enrollmentTool = SystemTool::enrollment;
std::vector<std::string> enrollmentArguments();
/// Blocks for as long as the system's tool runs, or until the token is stopped: never on the main thread.
std::optional<EnrollmentStatus> readEnrollmentStatus(const SystemTools& tools, const StopToken& stop);

std::optional<PropertyMap> readBatteryRegistry(const Registry& registry);
std::optional<PropertyMap> readInternalPowerSource(const PowerSources& sources);
BatteryReading readBattery(const Registry& registry, const PowerSources& sources);

/// Sorted by location, ascending.
std::vector<USBDevice> readUSBDevices(const Registry& registry);
/// Sorted by name, ascending.
std::vector<WiredInterface> readWiredInterfaces(const Registry& registry);

/// In the platform's device order.
std::vector<AudioOutputInfo> readAudioOutputs(const AudioObjects& audio);
std::optional<AudioOutputInfo> readAudioOutput(const AudioObjects& audio, std::uint32_t id);
std::optional<std::string> readDefaultOutputName(const AudioObjects& audio);

} // namespace tessivo
