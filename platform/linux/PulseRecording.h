#pragma once

#include "platform/Capture.h"
#include "platform/linux/PulseServer.h"

#include <span>

namespace tessivo {

/// A stream of samples from one source. Opens again by itself when the source goes and comes back; gives up
/// when the server refuses the first opening.
class PulseRecording final : public PulseClient {
public:
    PulseRecording(std::string sourceName, std::shared_ptr<CaptureDelegate> delegate);

    /// The server's thread.
    void open(pa_context* context, const PulseSnapshot& devices);
    void close();
    void devicesChanged(pa_context* context, const PulseSnapshot& devices) override;
    void disconnected() override;

    /// From its return on the delegate isn't called any more. Any thread but the server's.
    void silence();

private:
    void stateChanged();
    void read();
    void drop(bool tellServer);
    /// Tells the delegate and gives up.
    void fail(OpenFault fault);

    const std::string m_sourceName;
    std::mutex m_delegateMutex;
    std::shared_ptr<CaptureDelegate> m_delegate;
    bool m_wanted = false;
    bool m_opened = false; ///< the server has let us in once
    pa_stream* m_stream = nullptr;
    std::vector<float> m_samples;
};

/// A microphone of the sound server as a capture session. Neither call waits for the server.
class PulseMicrophoneSession final : public CaptureSession {
public:
    PulseMicrophoneSession(std::shared_ptr<PulseServer> server, std::string sourceName,
                           std::shared_ptr<CaptureDelegate> delegate);
    ~PulseMicrophoneSession() override;

    void startRunning() override;
    void stopRunning() override;

private:
    std::shared_ptr<PulseServer> m_server;
    std::shared_ptr<PulseRecording> m_recording;
};

} // namespace tessivo
