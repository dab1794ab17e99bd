#include "kit/hardware/AudioOutputInfo.h"
#include "platform/linux/PulseDevices.h"

#include <gtest/gtest.h>
#include <pulse/def.h>

namespace tessivo {
namespace {

using enum PulseAvailability;

const PulsePort speakerPort{"analog-output-speaker", "Speakers", PA_DEVICE_PORT_TYPE_SPEAKER, unknown};

PulsePort headphonePort(PulseAvailability available) {
    return {"analog-output-headphones", "Headphones", PA_DEVICE_PORT_TYPE_HEADPHONES, available};
}

TEST(PulseDevices, portsTellTheDataSourceAndTheJack) {
    const PulsePort untyped{"[Out] Headphones", "Headphones", 0, yes};
    const PulsePort lineOut{"analog-output-lineout", "Line Out", 0, yes};
    const PulsePort plain{"analog-output", "Analog Output", 0, unknown};
    const PulsePort hdmi{"hdmi-output-0", "HDMI", PA_DEVICE_PORT_TYPE_HDMI, yes};
    struct {
        const char* what;
        std::vector<PulsePort> ports;
        const char* active;
        std::optional<std::string> source, sourceName;
        std::optional<std::uint32_t> jack;
    } const cases[] = {
        {"no ports", {}, nullptr, {}, {}, {}},
        {"speakers, empty jack",
         {speakerPort, headphonePort(no)},
         "analog-output-speaker",
         "ispk",
         "Speakers",
         0},
        {"speakers though plugged",
         {speakerPort, headphonePort(yes)},
         "analog-output-speaker",
         "ispk",
         "Speakers",
         1},
        {"headphones",
         {speakerPort, headphonePort(yes)},
         "analog-output-headphones",
         "hdpn",
         "Headphones",
         1},
        {"chosen but empty", {speakerPort, headphonePort(no)}, "analog-output-headphones", {}, {}, 0},
        {"chosen, can't tell", {headphonePort(unknown)}, "analog-output-headphones", {}, {}, {}},
        {"an older server", {untyped}, "[Out] Headphones", "hdpn", "Headphones", 1},
        {"line out", {lineOut}, "analog-output-lineout", "line", "Line Out", 1},
        {"says nothing", {plain}, "analog-output", {}, {}, {}},
        {"a monitor's", {hdmi}, "hdmi-output-0", "hdmi", "HDMI", {}},
        {"active port not listed", {speakerPort}, "gone", {}, {}, {}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        PulseSink sink{.ports = row.ports};
        if (row.active) sink.activePort = row.active;
        const auto source = sink.dataSource();
        EXPECT_EQ(source ? std::optional(fourCharCode(*source)) : std::nullopt, row.source);
        EXPECT_EQ(source ? sink.dataSourceName(*source) : std::nullopt, row.sourceName);
        EXPECT_EQ(sink.jackState(), row.jack);
    }
}

TEST(PulseDevices, onlyTheMachinesOwnOutputIsBuiltIn) {
    const PulsePort hdmi{"hdmi-output-0", "HDMI", PA_DEVICE_PORT_TYPE_HDMI, yes};
    struct {
        PulseSink sink;
        const char* transport;
    } const cases[] = {
        {{.bus = "pci"}, "bltn"},
        {{.bus = "pci", .ports = {hdmi}, .activePort = "hdmi-output-0"}, "hdmi"},
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
