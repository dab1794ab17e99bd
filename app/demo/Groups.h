#pragma once

#include "platform/simulated/SimulatedControls.h"

class QGroupBox;

/// The controls of the panel "Simulated Mac", one group for each part of the machine. What a group changes
/// the application finds by itself, as on a real machine. The controls outlive the group.
namespace tessivo::demo {

class FeedServer;

QGroupBox* usbGroup(SimulatedControls& mac);
QGroupBox* headphonesGroup(SimulatedControls& mac);
QGroupBox* ethernetGroup(SimulatedControls& mac);
QGroupBox* microphoneGroup(SimulatedControls& mac);
QGroupBox* cameraGroup(SimulatedControls& mac);
QGroupBox* trackpadGroup(SimulatedControls& mac);
QGroupBox* enrollmentGroup(SimulatedControls& mac);
QGroupBox* batteryGroup(SimulatedControls& mac);
QGroupBox* updatesGroup(SimulatedControls& mac, FeedServer& server);
QGroupBox* wordingGroup(SimulatedControls& mac);
QGroupBox* diskGroup(SimulatedControls& mac);
/// What the application has asked of the desktop so far.
QGroupBox* activityGroup(SimulatedControls& mac);

} // namespace tessivo::demo
