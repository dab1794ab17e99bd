#pragma once

#include "platform/AudioObjects.h"

namespace tessivo {

/// Plays the test tone, through the system's output or routed to one device. Reports nothing: a tone that
/// can't be played isn't heard, and the tester says so. A page keeps one for as long as it is open; with
/// the player the tone ends. Main thread.
class TonePlayer final {
public:
    static constexpr double frequency = 523.25; ///< Hz
    static constexpr float amplitude = 0.3f;    ///< of full scale
    static constexpr double duration = 1.2;     ///< seconds; every tone of the program
    static constexpr double fallbackRate = 48000;

    explicit TonePlayer(ToneOutput& output);
    TonePlayer(const TonePlayer&) = delete;
    TonePlayer& operator=(const TonePlayer&) = delete;
    ~TonePlayer();

    /// The channels that are off are silent. Takes the place of a tone that still sounds.
    void play(bool left, bool right, double seconds = duration);
    /// Sends the tones that follow to this device and stops what sounds. With nothing, whatever device
    /// was last given stays.
    void route(std::optional<std::uint32_t> device);

    std::optional<std::uint32_t> device() const { return m_device; }
    /// Of the output; 0 when it can't be told.
    std::uint32_t outputChannels() const;

private:
    std::unique_ptr<ToneEngine> m_engine;
    std::optional<std::uint32_t> m_device;
};

} // namespace tessivo
