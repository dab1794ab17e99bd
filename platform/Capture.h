#pragma once

#include "kit/hardware/CaptureDevice.h"
#include "platform/SerialQueue.h"

#include <QImage>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace tessivo {

enum class MediaType { audio, video };
enum class AuthorizationStatus { notDetermined, restricted, denied, authorized };

/// The devices of one kind, or why there is no list of them: an empty list was read and has none.
struct CaptureList {
    enum class Fault {
        noService, ///< what lists them isn't there, doesn't answer, or shows no hardware that is there
        noDriver,  ///< hardware is there that the system can't drive, and nothing else was found
    };

    std::optional<std::vector<CaptureDevice>> devices; ///< in the platform's order
    Fault fault = Fault::noService;                    ///< of a list that isn't there

    bool operator==(const CaptureList&) const = default;
};

/// Why a device that was to open gives nothing.
enum class OpenFault {
    broken,  ///< it can't be opened
    busy,    ///< another program has it, or the system holds it back for a while
    refused, ///< this program may not open it
};

/// One buffer of an audio capture, interleaved; valid for the call alone.
struct AudioBuffer {
    std::span<const float> samples;
    int channelCount = 0;
};

/// Receives samples and frames one after another, off the main thread. Must not wait. A frame owns its
/// pixels: it may be kept.
class CaptureDelegate {
public:
    virtual ~CaptureDelegate() = default;
    virtual void audio(const AudioBuffer&) {}
    virtual void video(const QImage&) {}
    /// The device doesn't open; nothing was delivered, and nothing will be.
    virtual void openFailed(OpenFault) {}
};

/// One capture session on one device. Both calls may take long and are made on the capture queue, never
/// on the main thread; after `stopRunning` has returned the delegate isn't called any more.
class CaptureSession {
public:
    virtual ~CaptureSession() = default;
    virtual void startRunning() = 0;
    virtual void stopRunning() = 0;
    /// Makes a `startRunning` that is under way, or still to come, return soon. Any thread; never waits.
    virtual void cancelStart() {}
};

/// Microphones and cameras. `devices` and `authorizationStatus` are short, on the main thread.
class CaptureDevices {
public:
    virtual ~CaptureDevices() = default;

    virtual CaptureList devices(MediaType type) const = 0;
    virtual AuthorizationStatus authorizationStatus(MediaType type) const = 0;
    /// Asks the person; the answer comes on the main thread.
    virtual void requestAccess(MediaType type, std::function<void(bool)> answer) = 0;
    /// A session on the device with the delegate set; null if the input or the output can't be made or
    /// added. Doesn't open the device yet: what comes to light then is told to the delegate. Main thread.
    virtual std::shared_ptr<CaptureSession> makeSession(MediaType type, const std::string& deviceID,
                                                        std::shared_ptr<CaptureDelegate> delegate) = 0;

    /// The one queue on which all sessions of these devices are started and stopped.
    SerialQueue& captureQueue() { return m_captureQueue; }

private:
    SerialQueue m_captureQueue{"Tessivo.capture"};
};

} // namespace tessivo
