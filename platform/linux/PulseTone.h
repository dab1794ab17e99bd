#pragma once

#include "platform/linux/PulsePorts.h"

#include <atomic>

namespace tessivo {

/// A place for a tone: where it goes, and how its two channels meet the device's own.
struct TonePlace {
    std::string sinkName;
    std::string jack; ///< the port that must be the active one while the tone sounds; empty for whichever is
    pa_stream_flags_t flags = PA_STREAM_NOFLAGS;

    /// The left and the right channel go to the device's own left and right and nowhere else.
    static TonePlace on(const PulseOutput& output);
};

/// One sounding tone. One for a jack sounds only once the server has said that the jack is what plays, ends
/// as soon as it isn't, and leaves the port behind as it was. The server's thread alone, but for `failed`.
class PulseTone final : public PulseClient, public std::enable_shared_from_this<PulseTone> {
public:
    explicit PulseTone(std::shared_ptr<PulsePorts> ports) : m_ports(std::move(ports)) {}

    /// Takes the place of what sounds. `interleaved` holds left and right in turn.
    void play(pa_context* context, const TonePlace& place, std::vector<float> interleaved,
              std::uint32_t sampleRate);
    void end();
    void disconnected() override;
    /// The device or the server went away since `forgive`, or the tone couldn't be played there. Any thread.
    bool failed() const { return m_failed; }
    void forgive() { m_failed = false; }

private:
    void jackAnswered(pa_context* context, PortLoan::Outcome outcome);
    void open(pa_context* context);
    void write(std::size_t bytes);
    void fail();
    void drop(bool tellServer);

    const std::shared_ptr<PulsePorts> m_ports;
    std::atomic<bool> m_failed = false;
    TonePlace m_place;
    std::uint32_t m_sampleRate = 0;
    pa_stream* m_stream = nullptr;
    pa_operation* m_drain = nullptr;
    std::vector<float> m_samples;
    std::size_t m_written = 0; ///< in samples
};

} // namespace tessivo
