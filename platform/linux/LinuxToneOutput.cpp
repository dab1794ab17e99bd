#include "platform/linux/LinuxToneOutput.h"

#include "platform/linux/PulseTone.h"

#include <algorithm>
#include <cmath>

namespace tessivo {
namespace {

class LinuxToneEngine final : public ToneEngine {
public:
    LinuxToneEngine(std::shared_ptr<PulseServer> server, std::shared_ptr<PulsePorts> ports)
        : m_server(std::move(server)), m_tone(std::make_shared<PulseTone>(std::move(ports))) {
        m_server->addClient(m_tone);
    }
    ~LinuxToneEngine() override { stop(); }

    OutputFormat outputFormat() const override {
        const auto devices = m_server->snapshot();
        const auto output = target(*devices);
        if (!output) return {};
        return {.sampleRate = double(output->sink->sampleRate), .channelCount = output->sink->channelCount};
    }

    bool isRunning() const override { return m_running && !m_tone->failed(); }

    bool start() override {
        const auto devices = m_server->snapshot();
        m_tone->forgive();
        m_running = target(*devices).has_value();
        return m_running;
    }

    void stop() override {
        m_running = false;
        m_server->post([tone = m_tone](pa_context*, const PulseSnapshot&) { tone->end(); });
    }

    bool setDevice(std::uint32_t id) override {
        // Kept even if it isn't there: what was routed to one device must sound on no other.
        m_device = id;
        return m_server->snapshot()->output(id).has_value();
    }

    void schedule(std::vector<float> left, std::vector<float> right, double sampleRate) override {
        const auto devices = m_server->snapshot();
        const auto output = target(*devices);
        if (!isRunning() || !output || !(sampleRate >= 1 && sampleRate <= PA_RATE_MAX)) return;
        std::vector<float> interleaved;
        interleaved.reserve(2 * left.size());
        for (std::size_t i = 0; i < std::min(left.size(), right.size()); ++i)
            interleaved.insert(interleaved.end(), {left[i], right[i]});
        m_server->post([tone = m_tone, place = TonePlace::on(*output), interleaved = std::move(interleaved),
                        rate = std::uint32_t(std::lround(sampleRate))](pa_context* context,
                                                                       const PulseSnapshot&) mutable {
            tone->play(context, place, std::move(interleaved), rate);
        });
    }

private:
    std::optional<PulseOutput> target(const PulseSnapshot& devices) const {
        if (m_device) return devices.output(*m_device);
        const PulseSink* sink = devices.sinkNamed(devices.defaultSink);
        return sink ? std::optional(PulseOutput{sink}) : std::nullopt;
    }

    std::shared_ptr<PulseServer> m_server;
    std::shared_ptr<PulseTone> m_tone;
    std::optional<std::uint32_t> m_device;
    bool m_running = false;
};

} // namespace

LinuxToneOutput::LinuxToneOutput(std::shared_ptr<PulseServer> server)
    : m_server(std::move(server)), m_ports(std::make_shared<PulsePorts>(*m_server)) {
    m_server->keepClient(m_ports);
}

std::unique_ptr<ToneEngine> LinuxToneOutput::makeEngine() {
    return std::make_unique<LinuxToneEngine>(m_server, m_ports);
}

} // namespace tessivo
