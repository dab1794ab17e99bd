#pragma once

#include "platform/Capture.h"
#include "platform/Desktop.h"

#include <QObject>

namespace tessivo {

/// Asks the person only if they haven't decided yet. The answer comes on the main thread, at once where
/// it is known; not at all once `context` is gone.
void requestCaptureAccess(CaptureDevices& devices, MediaType type, QObject* context,
                          std::function<void(bool)> answer);

/// Opens the pane of the system's settings where access is given.
void openPrivacySettings(Desktop& desktop, MediaType type);
/// Whether the system has such a pane.
bool canOpenPrivacySettings(const Desktop& desktop, MediaType type);

/// In the platform's order; of several with one id only the first, for they are one device.
CaptureList listCameras(const CaptureDevices& devices);
CaptureList listMicrophones(const CaptureDevices& devices);

/// A session that is asked to start on the capture queue; null if it can't be set up.
std::shared_ptr<CaptureSession> openSession(CaptureDevices& devices, MediaType type,
                                            const std::string& deviceID,
                                            std::shared_ptr<CaptureDelegate> delegate);
/// Asks the session to stop on the capture queue and lets go of it there. Null is passed over.
void closeSession(CaptureDevices& devices, std::shared_ptr<CaptureSession> session);

} // namespace tessivo
