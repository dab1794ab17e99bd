#include "kit/hardware/AudioOutputInfo.h"
#include "platform/linux/PulseDevices.h"

#include <gtest/gtest.h>
#include <pulse/def.h>

namespace tessivo {
namespace {

using enum PulseAvailability;

const PulsePort speakerPort{"analog-output-speaker", "Speakers", PA_DEVICE_PORT_TYPE_SPEAKER, unknown};

const PulsePort hdmiPort{"hdmi-output-0", "HDMI", PA_DEVICE_PORT_TYPE_HDMI, yes};

PulsePort headphonePort(PulseAvailability available) {
    return {"analog-output-headphones", "Headphones", PA_DEVICE_PORT_TYPE_HEADPHONES, available};
}

TEST(PulseDevices, portsTellTheDataSourceAndTheJack) {
    constexpr const char *speaker = "analog-output-speaker", *headphones = "analog-output-headphones";
    struct {
        std::vector<PulsePort> ports;
        const char* active;
        std::optional<std::string> source, sourceName;
        std::optional<std::uint32_t> jack;
    } const cases[] = {
        {{}, nullptr, {}, {}, {}},
        {{speakerPort, headphonePort(no)}, speaker, "ispk", "Internal Speakers", 0},
        // What plays is the speaker, whatever is in the jack beside it.
        {{speakerPort, headphonePort(yes)}, speaker, "ispk", "Internal Speakers", 0},
        {{speakerPort, headphonePort(yes)}, headphones, "hdpn", "Headphones", 1},
        // Chosen, but empty or not able to tell.
        {{speakerPort, headphonePort(no)}, headphones, {}, {}, 0},
        {{headphonePort(unknown)}, headphones, {}, {}, {}},
        // Known by its kind, called by its English name.
        {{{"port-3", "Ligne de sortie", PA_DEVICE_PORT_TYPE_LINE, yes}}, "port-3", "line", "Line Out", 1},
        {{{"port-4", "External", PA_DEVICE_PORT_TYPE_SPEAKER, yes}},
         "port-4",
         "ispk",
         "Internal Speakers",
         {}},
        // Older servers give no type.
        {{{"[Out] Headphones", "Phones", 0, yes}}, "[Out] Headphones", "hdpn", "Headphones", 1},
        {{{"analog-output-lineout", "Line", 0, yes}}, "analog-output-lineout", "line", "Line Out", 1},
        {{{"[Out] Line", "Ligne", 0, yes}}, "[Out] Line", "line", "Line Out", 1},
        {{{"analog-output", "Analog", 0, unknown}}, "analog-output", {}, {}, {}},
        // A tone there would sound in both.
        {{{"[Out] Headphones+Speaker", "Combination port", PA_DEVICE_PORT_TYPE_HEADPHONES, yes}},
         "[Out] Headphones+Speaker",
         {},
         {},
         {}},
        {{hdmiPort}, "hdmi-output-0", "hdmi", "HDMI", {}},
        {{speakerPort}, "gone", {}, {}, {}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(&row - cases);
        PulseSink sink{.ports = row.ports};
        if (row.active) sink.activePort = row.active;
        const auto source = sink.dataSource();
        EXPECT_EQ(source ? std::optional(fourCharCode(*source)) : std::nullopt, row.source);
        EXPECT_EQ(source ? sink.dataSourceName(*source) : std::nullopt, row.sourceName);
        EXPECT_EQ(sink.jackState(), row.jack);
    }
}

TEST(PulseDevices, aJackWithAPlugIsAnOutputOfItsOwnBeforeItsSink) {
    constexpr std::uint32_t sink = 2, phones = 3, line = 4;
    struct {
        const char* bus;
        PulseAvailability headphones, lineOut;
        bool refused;
        std::vector<std::uint32_t> ids;
    } const cases[] = {{"pci", no, no, false, {sink}},
                       {"pci", yes, unknown, false, {phones, sink}},
                       {"pci", yes, yes, false, {phones, line, sink}},
                       {"pci", yes, yes, true, {line, sink}},
                       {"usb", yes, yes, false, {sink}}};
    for (const auto& row : cases) {
        SCOPED_TRACE(&row - cases);
        PulsePort jack = headphonePort(row.headphones);
        jack.id = phones;
        jack.refused = row.refused;
        const PulsePort lineOut{"analog-output-lineout", "Line", PA_DEVICE_PORT_TYPE_LINE, row.lineOut, line};
        const PulseSnapshot devices{
            .sinks = {{.id = sink, .bus = row.bus, .ports = {speakerPort, jack, lineOut}}}};
        std::vector<std::uint32_t> ids;
        for (const PulseOutput& output : devices.outputs())
            ids.push_back(output.id());
        EXPECT_EQ(ids, row.ids);
        EXPECT_EQ(devices.output(phones).has_value(), ids.front() == phones);
    }
}

TEST(PulseDevices, onlyTheMachinesOwnOutputIsBuiltIn) {
    struct {
        PulseSink sink;
        const char* transport;
    } const cases[] = {
        {{.bus = "pci"}, "bltn"},
        {{.bus = "pci", .ports = {hdmiPort}, .activePort = "hdmi-output-0"}, "hdmi"},
        {{.formFactor = "internal"}, "bltn"},
        {{.systemPath = "/devices/platform/soc/sound/card0"}, "bltn"},
        {{.bus = "usb", .formFactor = "headset"}, "usb "},
        {{.bus = "usb", .formFactor = "internal"}, "usb "},
        {{.bus = "bluetooth", .formFactor = "headphone"}, "blue"},
        {{}, "virt"},
    };
    for (const auto& [sink, transport] : cases)
        EXPECT_EQ(fourCharCode(sink.transportType()), transport) << sink.bus << sink.formFactor;
}

TEST(PulseDevices, whatTakesNoSpeechInIsNoMicrophone) {
    const PulsePort inner{"analog-input-internal-mic", "Internal", PA_DEVICE_PORT_TYPE_MIC, unknown};
    const PulsePort jack{"analog-input-mic", "Microphone", PA_DEVICE_PORT_TYPE_MIC, no};
    const PulsePort line{"analog-input", "Entr\u00e9e ligne", PA_DEVICE_PORT_TYPE_LINE, yes};
    const PulsePort optical{"iec958-stereo-input", "S/PDIF", PA_DEVICE_PORT_TYPE_SPDIF, unknown};
    const PulsePort plain{"analog-input", "Analog", PA_DEVICE_PORT_TYPE_ANALOG, unknown};
    const PulsePort oldLine{"analog-input-linein", "Line", 0, yes}, oldMic{"[In] Mic", "Mic", 0, yes};
    struct {
        PulseSource source;
        bool microphone;
    } const rows[] = {
        {{}, true},
        {{.ports = {jack, inner}}, true},
        {{.ports = {line, plain}}, true},
        {{.ports = {oldLine, oldMic}}, true},
        {{.ports = {jack}}, false},
        {{.ports = {line}}, false},
        {{.ports = {jack, line, optical}}, false},
        {{.ports = {oldLine}}, false},
        {{.ports = {{"[In] Line", "Line", 0, unknown}}}, false},
        {{.monitorsSink = true}, false},
        {{.isHardware = false, .ports = {inner}}, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.source.isMicrophone(), row.microphone) << &row - rows;
}

} // namespace
} // namespace tessivo
