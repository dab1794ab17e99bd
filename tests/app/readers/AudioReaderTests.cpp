#include "app/readers/Readers.h"

#include <gtest/gtest.h>
#include <map>

namespace tessivo {
namespace {

constexpr std::uint32_t global = fourCharCode("glob"), output = fourCharCode("outp");

/// Properties under (object, selector, scope); some can be listed without being readable.
struct FakeAudio final : AudioObjects {
    using Address = std::tuple<std::uint32_t, std::uint32_t, std::uint32_t>;

    bool hasProperty(std::uint32_t object, std::uint32_t selector, std::uint32_t scope) const override {
        return values.contains({object, selector, scope});
    }
    std::optional<std::uint32_t> propertyDataSize(std::uint32_t object, std::uint32_t selector,
                                                  std::uint32_t scope) const override {
        const auto found = values.find({object, selector, scope});
        if (found == values.end()) return std::nullopt;
        return std::uint32_t(found->second.size() * 4);
    }
    std::optional<std::vector<std::uint32_t>> numbers(std::uint32_t object, std::uint32_t selector,
                                                      std::uint32_t scope) const override {
        const auto found = values.find({object, selector, scope});
        if (found == values.end() || unreadable.contains(found->first)) return std::nullopt;
        return found->second;
    }
    std::optional<std::string> text(std::uint32_t object, std::uint32_t selector,
                                    std::uint32_t scope) const override {
        const auto found = names.find(object);
        if (selector != fourCharCode("lnam") || scope != global || found == names.end()) return std::nullopt;
        return found->second;
    }
    std::optional<std::string> translatedText(std::uint32_t object, std::uint32_t selector,
                                              std::uint32_t scope, std::uint32_t code) const override {
        if (selector != fourCharCode("lscn") || scope != output || !sourceNames) return std::nullopt;
        return std::to_string(object) + fourCharCode(code);
    }

    std::map<Address, std::vector<std::uint32_t>> values;
    std::set<Address> unreadable;
    std::map<std::uint32_t, std::string> names;
    bool sourceNames = true;
};

FakeAudio twoOutputs() {
    FakeAudio audio;
    audio.values = {{{1, fourCharCode("dev#"), global}, {40, 30, 20}},
                    {{1, fourCharCode("dOut"), global}, {20}},
                    {{40, fourCharCode("stm#"), output}, {1, 2}},
                    {{40, fourCharCode("tran"), global}, {fourCharCode("bltn")}},
                    {{40, fourCharCode("ssrc"), output}, {fourCharCode("hdpn")}},
                    {{40, fourCharCode("jack"), output}, {0}},
                    {{30, fourCharCode("stm#"), output}, {}}, // a microphone
                    {{20, fourCharCode("stm#"), output}, {3}},
                    {{20, fourCharCode("tran"), global}, {fourCharCode("usb ")}}};
    audio.names = {{20, "Phones"}, {30, "Microphone"}};
    return audio;
}

TEST(AudioReader, readsOutputsInThePlatformsOrder) {
    EXPECT_EQ(readAudioOutputs(twoOutputs()), (std::vector<AudioOutputInfo>{{.id = 40,
                                                                             .name = "Output",
                                                                             .builtIn = true,
                                                                             .dataSource = "hdpn",
                                                                             .dataSourceName = "40hdpn",
                                                                             .jackConnected = false},
                                                                            {.id = 20, .name = "Phones"}}));
    EXPECT_EQ(readDefaultOutputName(twoOutputs()), "Phones");
    EXPECT_EQ(readAudioOutput(twoOutputs(), 99), std::nullopt);
}

TEST(AudioReader, whatCantBeReadIsAbsent) {
    FakeAudio audio = twoOutputs();
    audio.sourceNames = false;
    EXPECT_EQ(readAudioOutput(audio, 40)->dataSourceName, std::nullopt);
    EXPECT_EQ(readAudioOutput(audio, 40)->dataSource, "hdpn");
    for (const auto& [address, value] : audio.values)
        if (std::get<0>(address) == 40 && std::get<1>(address) != fourCharCode("stm#"))
            audio.unreadable.insert(address);
    EXPECT_EQ(readAudioOutput(audio, 40), (AudioOutputInfo{.id = 40, .name = "Output"}));

    audio.names.clear();
    EXPECT_EQ(readDefaultOutputName(audio), std::nullopt);
    audio.unreadable.insert({1, fourCharCode("dev#"), global});
    EXPECT_TRUE(readAudioOutputs(audio).empty());
    EXPECT_TRUE(readAudioOutputs(FakeAudio()).empty());
    EXPECT_EQ(readDefaultOutputName(FakeAudio()), std::nullopt);
}

} // namespace
} // namespace tessivo
