#include "platform/simulated/SimulatedMac.h"

#include "kit/hardware/RegistryNames.h"

#include <algorithm>

namespace tessivo {

bool SimulatedMac::reads(const std::string& name) const {
    static const std::map<std::string, SimulatedReading> readings = {
        {SystemFact::model, SimulatedReading::model},
        {SystemFact::processor, SimulatedReading::chip},
        {SystemFact::build, SimulatedReading::build},
        {RegistryClass::machine, SimulatedReading::serial},
        {RegistryClass::battery, SimulatedReading::battery},
        {RegistryClass::usbDevice, SimulatedReading::usb},
        {RegistryClass::network, SimulatedReading::network}};
    const auto reading = readings.find(name);
    return reading == readings.end() || reads(reading->second);
}

const MachineFile::AudioDevice* SimulatedMac::audioDevice(std::uint32_t id) const {
    if (!facts.audio || !facts.audio->devices) return nullptr;
    const auto device = std::ranges::find(*facts.audio->devices, id, &MachineFile::AudioDevice::id);
    return device == facts.audio->devices->end() ? nullptr : &*device;
}

} // namespace tessivo
