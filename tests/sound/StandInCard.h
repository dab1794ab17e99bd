#pragma once

#include "tests/TemporaryFolder.h"

#include <QProcessEnvironment>
#include <fstream>
#include <string>

namespace tessivo {

/// The machine's own sound card with a speaker, a headphone jack and a line-out, which a daemon plays through
/// as through a real one: with its own card module, its own knowledge of mixers and its own ports.
class StandInCard final {
public:
    static constexpr const char* sink = "card";

    StandInCard() {
        for (const char* jack : {"Headphone Jack", "Line Out Jack"})
            plug(jack, false);
        for (const char* output : {"Headphone", "Line Out", "Speaker"})
            write(control(output + std::string(" Playback Switch")), "1");
        const std::string library = "{ lib \"" TESSIVO_STAND_IN_CARD "\" }\n";
        write(m_folder / "alsa.conf",
              "ctl_type.standin " + library + "pcm_type.standin " + library +
                  "ctl.hw { @args [ CARD ] @args.CARD { type string } type standin }\n"
                  "pcm.standin { type standin }\n");
        write(m_folder / "profiles.conf",
              "[General]\nauto-profiles = yes\n[Mapping analog-stereo]\ndevice-strings = standin\n"
              "channel-map = left,right\ndirection = output\n"
              "paths-output = analog-output-lineout analog-output-speaker analog-output-headphones\n");
    }

    /// What the daemon that loads the module needs.
    QProcessEnvironment variables() const {
        QProcessEnvironment variables;
        variables.insert("LD_PRELOAD", TESSIVO_STAND_IN_CARD);
        variables.insert("ALSA_CONFIG_PATH", QString::fromStdString((m_folder / "alsa.conf").string()));
        variables.insert("TESSIVO_STAND_IN_CARD", QString::fromStdString(m_controls.path().string()));
        return variables;
    }

    QString module() const {
        return QString("module-alsa-card device_id=0 use_ucm=0 tsched=0 mmap=0 rate=48000 sink_name=%1 "
                       "sink_properties=device.bus=pci profile_set=%2")
            .arg(sink, QString::fromStdString((m_folder / "profiles.conf").string()));
    }

    /// "Headphone Jack" or "Line Out Jack".
    void plug(const std::string& jack, bool in) { write(control(jack), in ? "1" : "0"); }

    /// Whether "Headphone", "Line Out" or "Speaker" is switched on in the card itself.
    bool sounds(const std::string& output) const {
        char value = 0;
        std::ifstream(control(output + " Playback Switch")) >> value;
        return value == '1';
    }

private:
    std::filesystem::path control(const std::string& name) const { return m_controls / name; }
    static void write(const std::filesystem::path& file, const std::string& text) {
        std::ofstream(file) << text;
    }

    TemporaryFolder m_folder, m_controls;
};

} // namespace tessivo
