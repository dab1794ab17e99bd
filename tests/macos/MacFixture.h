#pragma once

#include "app/readers/Readers.h"
#include "platform/macos/MacAudioObjects.h"
#include "platform/macos/MacDefaults.h"
#include "platform/macos/MacMachineFacts.h"
#include "platform/macos/MacRegistry.h"
#include "platform/macos/MacToneOutput.h"
#include "tests/macos/system/StandIn.h"

#include <gmock/gmock.h>

namespace tessivo {

/// A test on an empty stand-in system. At its end the program must hold nothing of the system's.
class Mac : public testing::Test {
protected:
    Mac() { system.reset(); }
    void TearDown() override { EXPECT_EQ(system.held(), ""); }

    void load(const std::string& machine) {
        system.reset();
        static std::map<std::string, MachineFile> machines;
        if (!machines.contains(machine))
            machines[machine] = loadMachineFile(std::filesystem::path(TESSIVO_MACHINES) / machine);
        system.load(machines.at(machine));
    }
    StandIn::Service& addService(const std::string& name, const std::string& className,
                                 const Property& properties) {
        auto service = std::make_shared<StandIn::Service>();
        service->className = className;
        service->properties = system.keep(properties);
        system.services[name].push_back(service);
        return *service;
    }

    StandIn& system = StandIn::shared();
};

} // namespace tessivo
