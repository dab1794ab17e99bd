#pragma once

#include "platform/Registry.h"
#include "platform/linux/SystemTree.h"

#include <map>

namespace tessivo {

/// The plugged-in USB devices, as the registry's entries. One thread.
class UsbDevices final {
public:
    explicit UsbDevices(SystemTree tree) : m_tree(std::move(tree)) {}

    /// "IOUSBHostDevice" entries of all devices, root hubs left out: "USB Product Name", "USB Vendor Name",
    /// "idVendor", "idProduct", "bDeviceClass", "Device Speed" (the Mac's code), "locationID", and
    /// "SolderedIn", a key of our own, of a device soldered to the board by the kernel's word. A device that
    /// went away while it was read has no properties. Nothing if the system has no list.
    /// None of this changes while a device is plugged in: one that told it all is read once, and known again
    /// by its folder's stamp.
    std::optional<std::vector<RegistryEntry>> entries();

    /// The Mac's place number of a device named "1-2.4": the bus in the top byte, then four bits a port from
    /// the root down. Nothing for a name of another form.
    static std::optional<std::uint32_t> locationID(const std::string& name);

private:
    struct Known {
        FolderStamp stamp;
        PropertyMap properties;
    };

    SystemTree m_tree;
    std::map<std::string, Known> m_known; ///< by name
};

} // namespace tessivo
