#pragma once

#include "platform/Platform.h"
#include "platform/simulated/SimulatedMac.h"

namespace tessivo {

class SimulatedCapture;
class SimulatedTools;
class SimulatedWording;

/// A Mac from a machine file. It gives back what the file holds and records what it is asked to do; it
/// holds no arithmetic and no wording. `SimulatedControls` changes it while it runs; a change is signalled
/// by nothing, as on a real machine. Made and used on the main thread.
class SimulatedPlatform final : public Platform {
public:
    struct Storage {
        std::filesystem::path defaults; ///< an ini file; empty: in memory
        /// Absent: one temporary folder, which goes with the platform.
        std::optional<std::vector<std::filesystem::path>> applicationSupport;
    };

    /// The scheduler outlives the platform: one moved by hand in tests, the event loop's in the demo.
    /// Throws DecodingError if the map isn't a machine file.
    SimulatedPlatform(const PropertyMap& machine, Scheduler& scheduler, const Storage& storage = {});
    ~SimulatedPlatform() override;

    Scheduler& scheduler() override;
    MachineFacts& machineFacts() override;
    Registry& registry() override;
    PowerSources& powerSources() override;
    SystemTools& systemTools() override;
    AudioObjects& audioObjects() override;
    ToneOutput& toneOutput() override;
    CaptureDevices& captureDevices() override;
    KeyCodes& keyCodes() override;
    FingerTouches& fingerTouches() override;
    Defaults& defaults() override;
    Folders& folders() override;
    Desktop& desktop() override;
    UpdateFramework& updateFramework() override;
    WordingService& wordingService() override;

private:
    friend class SimulatedControls;
    struct Parts;

    SimulatedMac& mac();
    SimulatedCapture& capture();
    SimulatedTools& tools();
    SimulatedWording& wording();

    Scheduler& m_scheduler;
    std::unique_ptr<Parts> m_parts;
};

} // namespace tessivo
