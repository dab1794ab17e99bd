#pragma once

#include "kit/support/Describe.h"
#include "platform/Desktop.h"
#include "platform/FingerTouches.h"
#include "platform/simulated/MachineFile.h"

#include <QRect>
#include <set>

namespace tessivo {

/// Readings that can be made to fail.
enum class SimulatedReading {
    model,
    chip,
    build,
    serial,
    storage,
    battery,
    powerSources,
    usb,
    network,
    audio
};
BOOST_DESCRIBE_ENUM(SimulatedReading, model, chip, build, serial, storage, battery, powerSources, usb,
                    network, audio)

/// One tone that was handed to an engine.
struct ScheduledTone {
    std::optional<std::uint32_t> device; ///< where it went; nothing if there was no output
    bool left = false;                   ///< the channel held anything but silence
    bool right = false;
    std::size_t frames = 0;
    double sampleRate = 0;
    bool sounded = false; ///< the engine ran

    bool operator==(const ScheduledTone&) const = default;
};

/// What a simulated Mac is just now: the facts of its file, as its controls have changed them since, and
/// what was asked of it. The simulated interfaces read it, `SimulatedControls` writes it; main thread.
struct SimulatedMac {
    MachineFile facts;
    std::set<SimulatedReading> broken;
    std::optional<HardwareKeys> hardwareKeys; ///< as of a platform that gives some
    std::map<MediaType, CaptureList::Fault> listFaults;

    bool engineFails = false;
    std::vector<ScheduledTone> tones;

    FingerTouches::Handlers fingers;
    QRect fingerPlace;            ///< where the surface was last told to be
    bool touchesAreAimed = false; ///< only those meant for the program are told

    bool defaultsFail = false;
    std::size_t defaultsWrites = 0;

    bool hasSettings = true; ///< links to panes of the settings lead somewhere
    std::vector<std::string> openedURLs;
    std::optional<std::string> pasteboard;
    std::optional<Paper> paper;
    std::optional<std::vector<std::filesystem::path>> chosenFiles; ///< in a panel of the system's own
    std::string language = "en";
    std::string region; ///< an ICU locale identifier
    std::optional<std::string> feedURL;
    std::size_t updateChecks = 0;

    bool reads(SimulatedReading reading) const { return !broken.contains(reading); }
    /// Whether the reading that a name of the system belongs to works.
    bool reads(const std::string& name) const;
    /// What a part of the facts holds under a name that can be read; else null.
    template <class Entry>
    const Entry* find(const std::optional<std::map<std::string, Entry>>& part,
                      const std::string& name) const {
        const bool has = part && part->contains(name) && reads(name);
        return has ? &part->at(name) : nullptr;
    }
    /// Null if there is no such device.
    const MachineFile::AudioDevice* audioDevice(std::uint32_t id) const;
};

} // namespace tessivo
