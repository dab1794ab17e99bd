#pragma once

#include "platform/linux/PulseServer.h"

#include <atomic>

namespace tessivo {

/// A place for a tone: where it goes, and how its two channels meet the device's own.
struct TonePlace {
    std::string sinkName;
    pa_stream_flags_t flags = PA_STREAM_NOFLAGS;

    /// The left and the right channel go to the device's own left and right and nowhere else.
    static TonePlace on(const PulseSink& sink);
};

/// One sounding tone. The server's thread alone, but for `failed`.
class PulseTone final : public PulseClient {
public:
    /// Takes the place of what sounds. `interleaved` holds left and right in turn.
    void play(pa_context* context, const TonePlace& place, std::vector<float> interleaved,
              std::uint32_t sampleRate);
    void end();
    void disconnected() override;
    /// The device or the server went away since `forgive`, or the tone couldn't be played there. Any thread.
    bool failed() const { return m_failed; }
    void forgive() { m_failed = false; }

private:
    void write(std::size_t bytes);
    void drop(bool tellServer);

    std::atomic<bool> m_failed = false;
    pa_stream* m_stream = nullptr;
    pa_operation* m_drain = nullptr;
    std::vector<float> m_samples;
    std::size_t m_written = 0; ///< in samples
};

} // namespace tessivo
