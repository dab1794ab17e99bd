#pragma once

#include "platform/Scheduler.h"
#include "platform/simulated/SimulatedMac.h"

namespace tessivo {

/// How a simulated microphone or camera behaves once it is asked to open.
struct CaptureBehaviour {
    /// How long opening takes; nothing: it never ends, until the session is stopped.
    std::optional<std::chrono::milliseconds> opening = std::chrono::milliseconds{0};
    /// A microphone sends buffers of this level without end; nothing: it sends none by itself. In dB.
    std::optional<double> level;
    /// What comes to light when it is opened; nothing: it opens.
    std::optional<OpenFault> fault;
    /// A camera sends frames without end.
    bool sendsFrames = false;
};

/// Microphones and cameras of a simulated Mac. A session delivers on a thread of its own; the members
/// that aren't of the interface are its controls' side. Main thread, but for the sessions' two calls.
class SimulatedCapture final : public CaptureDevices {
public:
    SimulatedCapture(SimulatedMac& mac, Scheduler& scheduler) : m_mac(mac), m_scheduler(scheduler) {}
    /// Ends every session, those included that are still opening.
    ~SimulatedCapture() override;

    CaptureList devices(MediaType type) const override;
    AuthorizationStatus authorizationStatus(MediaType type) const override;
    void requestAccess(MediaType type, std::function<void(bool)> answer) override;
    std::shared_ptr<CaptureSession> makeSession(MediaType type, const std::string& deviceID,
                                                std::shared_ptr<CaptureDelegate> delegate) override;

    void setAccess(MediaType type, AuthorizationStatus status);
    /// While prompts are held, a question for access waits for `setAccess`; else it is answered with yes.
    void holdPrompts(bool held) { m_promptsHeld = held; }
    void setBehaviour(const std::string& deviceID, const CaptureBehaviour& behaviour);
    /// Changes one thing about a device.
    template <class T>
    void behave(const std::string& deviceID, T CaptureBehaviour::* what, T how) {
        CaptureBehaviour behaviour = m_behaviours[deviceID];
        behaviour.*what = how;
        setBehaviour(deviceID, behaviour);
    }
    /// Runs the action on the thread of the device's session and waits for its end. False if no session
    /// is open on the device within 2 seconds.
    bool deliver(const std::string& deviceID, std::function<void(CaptureDelegate&)> action);
    /// Whether a session is open, or opening, on the device.
    bool isOpen(const std::string& deviceID) const;

private:
    struct Line;
    class Session;
    struct Prompt {
        MediaType type;
        std::function<void(bool)> answer;
    };

    void answerSoon(std::function<void(bool)> answer, bool allowed);
    std::vector<std::shared_ptr<Line>> lines(const std::string& deviceID) const;

    SimulatedMac& m_mac;
    Scheduler& m_scheduler;
    std::vector<Prompt> m_prompts;
    std::vector<std::unique_ptr<Scheduled>> m_answers;
    bool m_promptsHeld = false;
    std::map<std::string, CaptureBehaviour> m_behaviours;
    std::vector<std::weak_ptr<Line>> m_lines;
};

/// One frame of a test picture that moves with its number.
QImage testPicture(std::size_t number);

/// A buffer of the given average power: a square wave of both channels, interleaved. Level in dB.
std::vector<float> testSamples(double level, std::size_t frames);

} // namespace tessivo
