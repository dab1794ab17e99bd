#include "platform/linux/PulseRecording.h"

#include <cstring>
#include <utility>

namespace tessivo {
namespace {

constexpr pa_usec_t bufferTime = 20 * PA_USEC_PER_MSEC; ///< a few buffers in each window of the meter

/// What a server's refusal says of the source; nothing where it says nothing of it.
std::optional<OpenFault> openFault(int error) {
    switch (error) {
    case PA_ERR_ACCESS:
        return OpenFault::refused;
    case PA_ERR_BUSY:
    case PA_ERR_BADSTATE: // held back for another program
        return OpenFault::busy;
    case PA_ERR_NOENTITY: // gone, and may come back
    case PA_ERR_KILLED:
    case PA_ERR_TIMEOUT:
    case PA_ERR_CONNECTIONTERMINATED:
        return std::nullopt;
    default:
        return OpenFault::broken;
    }
}

} // namespace

PulseRecording::PulseRecording(std::string sourceName, std::shared_ptr<CaptureDelegate> delegate)
    : m_sourceName(std::move(sourceName)), m_delegate(std::move(delegate)) {}

void PulseRecording::open(pa_context* context, const PulseSnapshot& devices) {
    m_wanted = true;
    const PulseSource* source = devices.sourceNamed(m_sourceName);
    if (m_stream || !context || !source) return;

    pa_sample_spec format{.format = PA_SAMPLE_FLOAT32NE,
                          .rate = source->sampleRate,
                          .channels = std::uint8_t(source->channelCount)};
    if (!pa_sample_spec_valid(&format)) return fail(OpenFault::broken);
    pa_channel_map channels;
    // By number, for no channel may be mixed into another: one dead capsule must not hide.
    pa_channel_map_init_extend(&channels, format.channels, PA_CHANNEL_MAP_AUX);
    m_stream = pa_stream_new(context, "Tessivo", &format, &channels);
    if (!m_stream) return fail(OpenFault::broken);

    pa_stream_set_state_callback(
        m_stream, [](pa_stream*, void* self) { static_cast<PulseRecording*>(self)->stateChanged(); }, this);
    pa_stream_set_read_callback(
        m_stream, [](pa_stream*, std::size_t, void* self) { static_cast<PulseRecording*>(self)->read(); },
        this);
    const pa_buffer_attr pieces{.maxlength = std::uint32_t(-1),
                                .tlength = std::uint32_t(-1),
                                .prebuf = std::uint32_t(-1),
                                .minreq = std::uint32_t(-1),
                                .fragsize = std::uint32_t(pa_usec_to_bytes(bufferTime, &format))};
    // A stream that the server moved to another microphone would pass the wrong one.
    const auto flags =
        pa_stream_flags_t(PA_STREAM_ADJUST_LATENCY | PA_STREAM_DONT_MOVE | PA_STREAM_START_UNMUTED |
                          PA_STREAM_NO_REMAP_CHANNELS | PA_STREAM_NO_REMIX_CHANNELS);
    if (pa_stream_connect_record(m_stream, m_sourceName.c_str(), &pieces, flags) < 0) {
        drop(false);
        fail(OpenFault::broken);
    }
}

void PulseRecording::stateChanged() {
    const pa_stream_state_t state = pa_stream_get_state(m_stream);
    if (state == PA_STREAM_READY) {
        // The server couldn't wake the source for us.
        if (!m_opened && pa_stream_is_suspended(m_stream) == 1) return fail(OpenFault::busy);
        m_opened = true;
    } else if (state == PA_STREAM_FAILED) {
        pa_context* context = pa_stream_get_context(m_stream);
        // A connection that is lost takes its streams with it.
        const auto fault = pa_context_get_state(context) == PA_CONTEXT_READY
                               ? openFault(pa_context_errno(context))
                               : std::nullopt;
        drop(false);
        if (fault && !m_opened) fail(*fault);
    }
}

void PulseRecording::fail(OpenFault fault) {
    close();
    const std::lock_guard lock(m_delegateMutex);
    if (m_delegate) m_delegate->openFailed(fault);
}

void PulseRecording::close() {
    m_wanted = false;
    drop(true);
}

void PulseRecording::devicesChanged(pa_context* context, const PulseSnapshot& devices) {
    if (m_wanted) open(context, devices);
}

void PulseRecording::disconnected() {
    drop(false);
}

void PulseRecording::silence() {
    const std::lock_guard lock(m_delegateMutex);
    m_delegate.reset();
}

void PulseRecording::read() {
    while (m_stream && pa_stream_readable_size(m_stream) > 0) {
        const void* data = nullptr;
        std::size_t bytes = 0;
        if (pa_stream_peek(m_stream, &data, &bytes) < 0 || bytes == 0) return;
        if (data) { // else a hole in the recording
            const std::size_t channels = pa_stream_get_sample_spec(m_stream)->channels;
            m_samples.resize(bytes / (sizeof(float) * channels) * channels);
            std::memcpy(m_samples.data(), data, m_samples.size() * sizeof(float));
            const std::lock_guard lock(m_delegateMutex);
            if (m_delegate) m_delegate->audio({.samples = m_samples, .channelCount = int(channels)});
        }
        pa_stream_drop(m_stream);
    }
}

void PulseRecording::drop(bool tellServer) {
    if (!m_stream) return;
    pa_stream* stream = std::exchange(m_stream, nullptr);
    pa_stream_set_state_callback(stream, nullptr, nullptr);
    pa_stream_set_read_callback(stream, nullptr, nullptr);
    if (tellServer) pa_stream_disconnect(stream);
    pa_stream_unref(stream);
}

PulseMicrophoneSession::PulseMicrophoneSession(std::shared_ptr<PulseServer> server, std::string sourceName,
                                               std::shared_ptr<CaptureDelegate> delegate)
    : m_server(std::move(server)),
      m_recording(std::make_shared<PulseRecording>(std::move(sourceName), std::move(delegate))) {
    m_server->addClient(m_recording);
}

PulseMicrophoneSession::~PulseMicrophoneSession() {
    stopRunning();
}

void PulseMicrophoneSession::startRunning() {
    m_server->post([recording = m_recording](pa_context* context, const PulseSnapshot& devices) {
        recording->open(context, devices);
    });
}

void PulseMicrophoneSession::stopRunning() {
    m_recording->silence();
    m_server->post([recording = m_recording](pa_context*, const PulseSnapshot&) { recording->close(); });
}

} // namespace tessivo
