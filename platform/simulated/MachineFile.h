#pragma once

#include "kit/support/Property.h"
#include "platform/AudioObjects.h"
#include "platform/Capture.h"
#include "platform/MachineFacts.h"
#include "platform/Registry.h"
#include "platform/SystemTools.h"

#include <filesystem>
#include <map>

namespace tessivo {

/// The raw facts of one Mac, as its machine file holds them. What a file leaves out is a reading that fails.
struct MachineFile {
    struct AudioDevice {
        std::uint32_t id = 0;
        std::map<std::string, std::uint32_t> numbers; ///< "tran", "stm#" (bytes), "ssrc", "jack"
        std::optional<std::string> name;              ///< "lnam"
        std::map<std::uint32_t, std::string> sources; ///< "lscn": data source code to name
        OutputFormat format;
    };
    struct Audio {
        std::optional<std::uint32_t> defaultOutput;
        std::optional<std::vector<AudioDevice>> devices;
    };
    struct CaptureEntry {
        CaptureDevice device;
        bool opens = true;
    };

    /// A file larger than this is refused, in bytes.
    static constexpr std::uintmax_t largestFile = 4u << 20;

    OperatingSystem operatingSystem;
    std::map<std::string, std::string> sysctl;
    std::uint64_t physicalMemory = 0;
    std::optional<std::int64_t> startupVolumeTotalCapacity;
    std::map<std::string, std::vector<RegistryEntry>> registry; ///< a class that isn't here can't be searched
    std::optional<PropertyList> powerSources;
    std::map<std::string, ToolRun> tools; ///< by path; a tool that isn't here can't be launched
    std::optional<Audio> audio;
    std::map<MediaType, std::vector<CaptureEntry>> captureDevices; ///< a kind that isn't here can't be listed
    std::map<MediaType, AuthorizationStatus> access;

    /// Unknown keys are passed over. Throws DecodingError, which names the path, for a value of a wrong
    /// type or a record that lacks what identifies it.
    static MachineFile decode(const PropertyMap& map);
};

/// Reads a machine file and makes sure that it decodes. Throws std::runtime_error with one line that names
/// the file and the fault.
PropertyMap loadMachineFile(const std::filesystem::path& path);

} // namespace tessivo
