#include "platform/linux/PulseTone.h"

#include <algorithm>
#include <utility>

namespace tessivo {

TonePlace TonePlace::on(const PulseOutput& output) {
    const PulseSink& sink = *output.sink;
    // A tone that the server moved elsewhere would prove the wrong device.
    int flags = PA_STREAM_DONT_MOVE | PA_STREAM_START_UNMUTED;
    if (sink.channelCount > 2) flags |= PA_STREAM_NO_REMIX_CHANNELS;
    if (sink.channelCount >= 2 && !sink.hasFrontPair) flags |= PA_STREAM_NO_REMAP_CHANNELS;
    return {sink.name, output.jack ? output.jack->name : std::string(), pa_stream_flags_t(flags)};
}

void PulseTone::play(pa_context* context, const TonePlace& place, std::vector<float> interleaved,
                     std::uint32_t sampleRate) {
    drop(true);
    m_place = place;
    m_samples = std::move(interleaved);
    m_sampleRate = sampleRate;
    if (!place.jack.empty()) {
        m_ports->take(this, place.sinkName, place.jack,
                      [weak = weak_from_this()](pa_context* connection, PortLoan::Outcome outcome) {
                          if (const auto tone = weak.lock()) tone->jackAnswered(connection, outcome);
                      });
        return;
    }
    m_ports->giveBack(this);
    open(context);
}

void PulseTone::jackAnswered(pa_context* context, PortLoan::Outcome outcome) {
    if (outcome == PortLoan::Outcome::granted) return open(context);
    drop(true);
    m_failed = true;
}

void PulseTone::open(pa_context* context) {
    const pa_sample_spec format{.format = PA_SAMPLE_FLOAT32NE, .rate = m_sampleRate, .channels = 2};
    pa_channel_map channels;
    pa_channel_map_init_stereo(&channels);
    pa_proplist* properties = pa_proplist_new();
    pa_proplist_sets(properties, PA_PROP_MEDIA_ROLE, "test");
    if (context && pa_sample_spec_valid(&format))
        m_stream = pa_stream_new_with_proplist(context, "Tessivo", &format, &channels, properties);
    pa_proplist_free(properties);
    if (!m_stream) return fail();

    m_written = 0;
    pa_stream_set_state_callback(
        m_stream,
        [](pa_stream* stream, void* self) {
            if (pa_stream_get_state(stream) == PA_STREAM_FAILED) static_cast<PulseTone*>(self)->fail();
        },
        this);
    pa_stream_set_write_callback(
        m_stream,
        [](pa_stream*, std::size_t bytes, void* self) { static_cast<PulseTone*>(self)->write(bytes); }, this);
    // Room for the whole tone, so that no hiccup of this computer can tear it.
    const pa_buffer_attr room{.maxlength = std::uint32_t(-1),
                              .tlength = std::uint32_t(m_samples.size() * sizeof(float)),
                              .prebuf = std::uint32_t(-1),
                              .minreq = std::uint32_t(-1),
                              .fragsize = std::uint32_t(-1)};
    if (pa_stream_connect_playback(m_stream, m_place.sinkName.c_str(), &room, m_place.flags, nullptr,
                                   nullptr) < 0)
        fail();
}

void PulseTone::write(std::size_t bytes) {
    const std::size_t frames = std::min(bytes / sizeof(float), m_samples.size() - m_written) / 2;
    if (frames > 0) {
        pa_stream_write(m_stream, m_samples.data() + m_written, frames * 2 * sizeof(float), nullptr, 0,
                        PA_SEEK_RELATIVE);
        m_written += frames * 2;
    }
    if (m_written < m_samples.size()) return;
    pa_stream_set_write_callback(m_stream, nullptr, nullptr);
    m_drain = pa_stream_drain(
        m_stream, [](pa_stream*, int, void* self) { static_cast<PulseTone*>(self)->end(); }, this);
}

void PulseTone::end() {
    drop(true);
    m_ports->giveBack(this);
}

void PulseTone::fail() {
    m_failed = true;
    drop(false);
    m_ports->giveBack(this);
}

void PulseTone::disconnected() {
    if (m_stream) m_failed = true;
    drop(false);
}

void PulseTone::drop(bool tellServer) {
    if (!m_stream) return;
    pa_stream* stream = std::exchange(m_stream, nullptr);
    if (m_drain) {
        pa_operation_cancel(m_drain);
        pa_operation_unref(m_drain);
        m_drain = nullptr;
    }
    pa_stream_set_state_callback(stream, nullptr, nullptr);
    pa_stream_set_write_callback(stream, nullptr, nullptr);
    if (tellServer) pa_stream_disconnect(stream);
    pa_stream_unref(stream);
    m_samples = {};
}

} // namespace tessivo
