#pragma once

#include "kit/support/Describe.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// The properties of one audio device as the system gave them; what couldn't be read is absent.
struct AudioOutputProperties {
    std::optional<std::uint32_t> streamsSize;  ///< "stm#" of the output scope, in bytes
    std::optional<std::uint32_t> transport;    ///< "tran", a four-letter code
    std::optional<std::uint32_t> dataSource;   ///< "ssrc", a four-letter code
    std::optional<std::uint32_t> jack;         ///< "jack"
    std::optional<std::string> name;           ///< "lnam"
    std::optional<std::string> dataSourceName; ///< "lscn" of the data source
};

/// One audio output device, as its properties tell.
struct AudioOutputInfo {
    std::uint32_t id = 0;
    std::string name;
    bool builtIn = false;
    std::optional<std::string> dataSource; ///< four-letter code, such as "hdpn"
    std::optional<std::string> dataSourceName;
    std::optional<bool> jackConnected;

    /// Nothing for a device without output streams, such as a microphone.
    static std::optional<AudioOutputInfo> make(std::uint32_t id, const AudioOutputProperties& properties);

    bool operator==(const AudioOutputInfo&) const = default;
};
BOOST_DESCRIBE_STRUCT(AudioOutputInfo, (), (id, name, builtIn, dataSource, dataSourceName, jackConnected))

/// The four bytes, most significant first, as text.
std::string fourCharCode(std::uint32_t value);
/// The code of a four-letter text literal.
constexpr std::uint32_t fourCharCode(const char (&text)[5]) {
    return std::uint32_t(std::uint8_t(text[0])) << 24 | std::uint32_t(std::uint8_t(text[1])) << 16 |
           std::uint32_t(std::uint8_t(text[2])) << 8 | std::uint32_t(std::uint8_t(text[3]));
}

namespace HeadphoneDetect {
/// The machine's own headphone jack with something in it, or nothing.
std::optional<AudioOutputInfo> find(const std::vector<AudioOutputInfo>& outputs);
} // namespace HeadphoneDetect

} // namespace tessivo
