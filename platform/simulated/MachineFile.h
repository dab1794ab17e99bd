#pragma once

#include "kit/support/Describe.h"
#include "platform/Capture.h"
#include "platform/MachineFacts.h"
#include "platform/Registry.h"

#include <filesystem>
#include <map>

namespace tessivo {

/// The raw facts of one Mac as its machine file holds them: each member stands under its own name. What a
/// file leaves out is a reading that fails.
struct MachineFile {
    struct Tool {
        std::uint8_t exitStatus = 0;
        std::optional<std::string> output;
    };
    /// A number of the audio system that stands for four letters, such as "bltn". One that isn't of ASCII
    /// letters is written "0x000000c8".
    struct AudioCode {
        AudioCode(std::uint32_t number = 0) : number(number) {}
        operator std::uint32_t() const { return number; }

        std::uint32_t number;
    };
    /// What an audio device tells under its selectors.
    struct AudioProperties {
        std::optional<std::uint32_t> jack;                       ///< "jack"
        std::optional<std::string> name;                         ///< "lnam"
        std::optional<std::map<AudioCode, std::string>> sources; ///< "lscn": names of data sources
        std::optional<AudioCode> dataSource;                     ///< "ssrc"
        std::optional<std::uint32_t> streamsSize;                ///< "stm#", in bytes
        std::optional<AudioCode> transport;                      ///< "tran"

        /// The number under a selector; nothing for a selector of something else.
        std::optional<std::uint32_t> number(std::uint32_t selector) const;
    };
    /// A number that is written with its fraction (48000.0), and read with or without.
    struct Fraction {
        double value = 0;
    };
    struct AudioFormat {
        Fraction sampleRate; ///< Hz; 0 when unknown
        std::uint32_t channelCount = 0;
    };
    struct AudioDevice {
        std::uint32_t id = 0;
        std::optional<AudioProperties> properties;
        std::optional<AudioFormat> format;
    };
    struct Audio {
        std::optional<std::uint32_t> defaultOutput;
        std::optional<std::vector<AudioDevice>> devices;
    };
    struct CaptureEntry {
        std::string uniqueID;
        std::optional<std::string> localizedName;
        std::optional<bool> opens; ///< absent: it does
    };
    using CaptureEntries = std::optional<std::vector<CaptureEntry>>; ///< absent: can't be listed
    struct Access {
        std::optional<AuthorizationStatus> audio;
        std::optional<AuthorizationStatus> video;

        std::optional<AuthorizationStatus>& of(MediaType type) {
            return type == MediaType::audio ? audio : video;
        }
    };

    /// A file larger than this is refused, in bytes.
    static constexpr std::uintmax_t largestFile = 4u << 20;

    std::optional<OperatingSystem> operatingSystem;
    std::optional<std::map<std::string, std::string>> sysctl;
    std::optional<std::uint64_t> physicalMemory;
    std::optional<std::int64_t> startupVolumeTotalCapacity;
    /// A class that isn't here can't be searched.
    std::optional<std::map<std::string, std::vector<RegistryEntry>>> registry;
    std::optional<PropertyList> powerSources;
    std::optional<std::map<std::string, Tool>> tools; ///< by path; one that isn't here can't be launched
    std::optional<Audio> audio;
    CaptureEntries microphones;
    CaptureEntries cameras;
    std::optional<Access> access;
    std::optional<PropertyMap> sources; ///< what a capture was made from; a replay passes it over
    std::optional<std::int64_t> sourcesLeftOut;

    CaptureEntries& captureEntries(MediaType type) {
        return type == MediaType::audio ? microphones : cameras;
    }

    /// Unknown keys are passed over. Throws DecodingError, which names the path, for a value of a wrong
    /// type or a record that lacks what identifies it.
    static MachineFile decode(std::string_view json);
    /// Pretty, with sorted keys; reads back as the same facts.
    std::string encode() const;
};

BOOST_DESCRIBE_ENUM(AuthorizationStatus, notDetermined, restricted, denied, authorized)
BOOST_DESCRIBE_STRUCT(OperatingSystem, (), (title, major, minor, patch))
BOOST_DESCRIBE_STRUCT(MachineFile::Tool, (), (exitStatus, output))
BOOST_DESCRIBE_STRUCT(MachineFile::AudioFormat, (), (sampleRate, channelCount))
BOOST_DESCRIBE_STRUCT(MachineFile::AudioDevice, (), (id, properties, format))
BOOST_DESCRIBE_STRUCT(MachineFile::Audio, (), (defaultOutput, devices))
BOOST_DESCRIBE_STRUCT(MachineFile::CaptureEntry, (), (uniqueID, localizedName, opens))
BOOST_DESCRIBE_STRUCT(MachineFile::Access, (), (audio, video))
BOOST_DESCRIBE_STRUCT(MachineFile, (),
                      (operatingSystem, sysctl, physicalMemory, startupVolumeTotalCapacity, registry,
                       powerSources, tools, audio, microphones, cameras, access, sources, sourcesLeftOut))

/// Reads a machine file. Throws std::runtime_error with one line that names the file and the fault.
MachineFile loadMachineFile(const std::filesystem::path& path);

} // namespace tessivo
