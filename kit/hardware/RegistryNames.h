#pragma once

/// Names under which the system tells of its hardware. Each stands here and nowhere else.
namespace tessivo {

/// Classes to search the hardware registry for.
namespace RegistryClass {
inline constexpr const char* machine = "IOPlatformExpertDevice";
inline constexpr const char* battery = "AppleSmartBattery";
inline constexpr const char* usbDevice = "IOUSBHostDevice";
inline constexpr const char* network = "IONetworkInterface";
} // namespace RegistryClass

/// Keys of the registry's entries and of power sources' descriptions.
namespace RegistryKey {
inline constexpr const char* serialNumber = "IOPlatformSerialNumber";

inline constexpr const char* batteryInstalled = "BatteryInstalled";
inline constexpr const char* cycleCount = "CycleCount";
inline constexpr const char* designCapacity = "DesignCapacity";
inline constexpr const char* nominalCapacity = "NominalChargeCapacity";
inline constexpr const char* sourceType = "Type";
inline constexpr const char* internalBattery = "InternalBattery"; ///< a value of `sourceType`
inline constexpr const char* isPresent = "Is Present";
inline constexpr const char* batteryHealth = "BatteryHealth";
inline constexpr const char* batteryCondition = "BatteryHealthCondition";

inline constexpr const char* productName = "USB Product Name";
inline constexpr const char* vendorName = "USB Vendor Name";
inline constexpr const char* vendorID = "idVendor";
inline constexpr const char* productID = "idProduct";
inline constexpr const char* deviceClass = "bDeviceClass";
inline constexpr const char* deviceSpeed = "Device Speed";
inline constexpr const char* locationID = "locationID";
inline constexpr const char* solderedIn = "SolderedIn"; ///< the program's own

inline constexpr const char* interfaceName = "BSD Name";
inline constexpr const char* isBuiltIn = "IOBuiltin";
inline constexpr const char* interfaceFlags = "IOInterfaceFlags";
inline constexpr const char* linkStatus = "IOLinkStatus";
inline constexpr const char* linkSpeed = "IOLinkSpeed";
} // namespace RegistryKey

/// Facts that are asked for by name alone.
namespace SystemFact {
inline constexpr const char* model = "hw.model";
inline constexpr const char* processor = "machdep.cpu.brand_string";
inline constexpr const char* build = "kern.osversion";
} // namespace SystemFact

/// Paths of the system's tools.
namespace SystemTool {
inline constexpr const char* enrollment = "/usr/bin/profiles";
} // namespace SystemTool

} // namespace tessivo
