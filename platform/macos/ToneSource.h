#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

namespace tessivo {

/// Tones on their way from the main thread to the render callback, which takes no lock and neither allocates
/// nor frees: a new tone is handed over by one atomic pointer, and what it replaces is freed by the main
/// thread once the callback plays the new one.
class ToneSource final {
public:
    /// Main thread. Both lists have the same length; plays from the next callback on, in place of what
    /// sounds.
    void publish(std::vector<float> left, std::vector<float> right);
    /// Main thread, while no callback can run. Nothing sounds any more.
    void clear();

    /// The render callback alone. Fills both channels; silence past the tone's end. False where all is
    /// silence.
    bool render(float* left, float* right, std::uint32_t frames);

private:
    struct Tone {
        std::vector<float> left;
        std::vector<float> right;
    };

    std::deque<std::unique_ptr<const Tone>> m_tones; ///< main thread; the oldest first
    std::atomic<const Tone*> m_published = nullptr;
    std::atomic<const Tone*> m_playing = nullptr; ///< written by the callback
    std::size_t m_position = 0;                   ///< the callback's; in frames
};

} // namespace tessivo
