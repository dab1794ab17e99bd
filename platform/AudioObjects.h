#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// One property of an audio object, on element 0.
struct AudioAddress {
    std::uint32_t object = 0;
    std::uint32_t selector = 0;
    std::uint32_t scope = 0;

    bool operator==(const AudioAddress&) const = default;
};

/// Audio devices as numbers and texts under four-letter selectors (see `fourCharCode`). Object 1 is the
/// system object. Short and synchronous, main thread; never waits for a server. System: "dev#" (ids), "dOut"
/// (default output). Device: "stm#"/"outp" (size 0: no output), "tran" ("bltn" when built in), "ssrc"/"outp",
/// "jack"/"outp", "lnam" (text), "lscn"/"outp" (name of a data source).
class AudioObjects {
public:
    static constexpr std::uint32_t systemObject = 1;

    virtual ~AudioObjects() = default;

    virtual bool hasProperty(const AudioAddress& address) const = 0;
    /// Size of the property's data in bytes; nothing on failure.
    virtual std::optional<std::uint32_t> propertyDataSize(const AudioAddress& address) const = 0;
    /// The property's 32-bit numbers; nothing on failure.
    virtual std::optional<std::vector<std::uint32_t>> numbers(const AudioAddress& address) const = 0;
    virtual std::optional<std::string> text(const AudioAddress& address) const = 0;
    /// The text a translation record gives for a 32-bit code ("lscn").
    virtual std::optional<std::string> translatedText(const AudioAddress& address,
                                                      std::uint32_t code) const = 0;
};

/// The format of an output's first bus.
struct OutputFormat {
    double sampleRate = 0; ///< Hz; 0 when unknown
    std::uint32_t channelCount = 0;
};

/// One audio engine with one player. Main thread; nothing here waits for the device.
class ToneEngine {
public:
    virtual ~ToneEngine() = default;

    virtual OutputFormat outputFormat() const = 0;
    virtual bool isRunning() const = 0;
    /// False when the engine can't start.
    virtual bool start() = 0;
    virtual void stop() = 0;
    /// Routes the engine to a device by its audio object id; false when there is no such device.
    virtual bool setDevice(std::uint32_t id) = 0;
    /// Plays the samples at once, in place of what sounds. Both lists have the same length.
    virtual void schedule(std::vector<float> left, std::vector<float> right, double sampleRate) = 0;
};

class ToneOutput {
public:
    virtual ~ToneOutput() = default;
    virtual std::unique_ptr<ToneEngine> makeEngine() = 0;
};

} // namespace tessivo
