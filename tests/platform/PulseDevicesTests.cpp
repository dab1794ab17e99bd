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
        {{speakerPort, headphonePort(no)}, speaker, "ispk", "Speakers", 0},
        {{speakerPort, headphonePort(yes)}, speaker, "ispk", "Speakers", 1},
        {{speakerPort, headphonePort(yes)}, headphones, "hdpn", "Headphones", 1},
        // Chosen, but empty or not able to tell.
        {{speakerPort, headphonePort(no)}, headphones, {}, {}, 0},
        {{headphonePort(unknown)}, headphones, {}, {}, {}},
        // Older servers give no type.
        {{{"[Out] Headphones", "Phones", 0, yes}}, "[Out] Headphones", "hdpn", "Phones", 1},
        {{{"analog-output-lineout", "Line", 0, yes}}, "analog-output-lineout", "line", "Line", 1},
        {{{"analog-output", "Analog", 0, unknown}}, "analog-output", {}, {}, {}},
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

TEST(PulseDevices, emptyJacksAndEchoesAreNoMicrophones) {
    const PulsePort inner{"analog-input-internal-mic", "Internal", 0, unknown};
    const PulsePort jack{"analog-input-mic", "Microphone", 0, no};
    EXPECT_TRUE((PulseSource{.name = "a"}.isMicrophone()));
    EXPECT_TRUE((PulseSource{.name = "a", .ports = {jack, inner}}.isMicrophone()));
    EXPECT_FALSE((PulseSource{.name = "a", .ports = {jack}}.isMicrophone()));
    EXPECT_FALSE((PulseSource{.name = "a", .monitorsSink = true}.isMicrophone()));
}

} // namespace
} // namespace tessivo
