#include "platform/simulated/SimulatedPlatform.h"

#include "platform/KeyCodeTable.h"
#include "platform/simulated/SimulatedAudio.h"
#include "platform/simulated/SimulatedCapture.h"
#include "platform/simulated/SimulatedDesk.h"
#include "platform/simulated/SimulatedHardware.h"
#include "platform/simulated/SimulatedTools.h"
#include "platform/simulated/SimulatedWording.h"

namespace tessivo {

struct SimulatedPlatform::Parts {
    Parts(const PropertyMap& machine, Scheduler& scheduler, const Storage& storage)
        : mac{MachineFile::decode(machine)},
          tools(mac.facts.tools),
          capture(mac, scheduler),
          defaults(mac, storage.defaults),
          folders(storage.applicationSupport) {}

    SimulatedMac mac;
    SimulatedFacts facts{mac};
    SimulatedRegistry registry{mac};
    SimulatedPowerSources powerSources{mac};
    SimulatedTools tools;
    SimulatedAudioObjects audioObjects{mac};
    SimulatedToneOutput toneOutput{mac};
    SimulatedCapture capture;
    KeyCodeTable keyCodes;
    SimulatedFingers fingers{mac};
    SimulatedDefaults defaults;
    SimulatedFolders folders;
    SimulatedDesktop desktop{mac};
    SimulatedUpdates updates{mac};
    SimulatedWording wording;
};

SimulatedPlatform::SimulatedPlatform(const PropertyMap& machine, Scheduler& scheduler, const Storage& storage)
    : m_scheduler(scheduler), m_parts(std::make_unique<Parts>(machine, scheduler, storage)) {}

SimulatedPlatform::~SimulatedPlatform() = default;

Scheduler& SimulatedPlatform::scheduler() {
    return m_scheduler;
}
MachineFacts& SimulatedPlatform::machineFacts() {
    return m_parts->facts;
}
Registry& SimulatedPlatform::registry() {
    return m_parts->registry;
}
PowerSources& SimulatedPlatform::powerSources() {
    return m_parts->powerSources;
}
SystemTools& SimulatedPlatform::systemTools() {
    return m_parts->tools;
}
AudioObjects& SimulatedPlatform::audioObjects() {
    return m_parts->audioObjects;
}
ToneOutput& SimulatedPlatform::toneOutput() {
    return m_parts->toneOutput;
}
CaptureDevices& SimulatedPlatform::captureDevices() {
    return m_parts->capture;
}
KeyCodes& SimulatedPlatform::keyCodes() {
    return m_parts->keyCodes;
}
FingerTouches& SimulatedPlatform::fingerTouches() {
    return m_parts->fingers;
}
Defaults& SimulatedPlatform::defaults() {
    return m_parts->defaults;
}
Folders& SimulatedPlatform::folders() {
    return m_parts->folders;
}
Desktop& SimulatedPlatform::desktop() {
    return m_parts->desktop;
}
UpdateFramework& SimulatedPlatform::updateFramework() {
    return m_parts->updates;
}
WordingService& SimulatedPlatform::wordingService() {
    return m_parts->wording;
}

SimulatedMac& SimulatedPlatform::mac() {
    return m_parts->mac;
}
SimulatedCapture& SimulatedPlatform::capture() {
    return m_parts->capture;
}
SimulatedTools& SimulatedPlatform::tools() {
    return m_parts->tools;
}
SimulatedWording& SimulatedPlatform::wording() {
    return m_parts->wording;
}

} // namespace tessivo
