#include "app/readers/Readers.h"

#include <gtest/gtest.h>
#include <map>

namespace tessivo {
namespace {

constexpr std::uint32_t operator""_code(const char* text, std::size_t) {
    return std::uint32_t(std::uint8_t(text[0])) << 24 | std::uint32_t(std::uint8_t(text[1])) << 16 |
           std::uint32_t(std::uint8_t(text[2])) << 8 | std::uint32_t(std::uint8_t(text[3]));
}

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
        if (selector != "lnam"_code || scope != "glob"_code || found == names.end()) return std::nullopt;
        return found->second;
    }
    std::optional<std::string> translatedText(std::uint32_t object, std::uint32_t selector,
                                              std::uint32_t scope, std::uint32_t code) const override {
        if (selector != "lscn"_code || scope != "outp"_code || !sourceNames) return std::nullopt;
        return std::to_string(object) + fourCharCode(code);
    }

    std::map<Address, std::vector<std::uint32_t>> values;
    std::set<Address> unreadable;
    std::map<std::uint32_t, std::string> names;
    bool sourceNames = true;
};

FakeAudio twoOutputs() {
    FakeAudio audio;
    audio.values = {{{1, "dev#"_code, "glob"_code}, {40, 30, 20}},
                    {{1, "dOut"_code, "glob"_code}, {20}},
                    {{40, "stm#"_code, "outp"_code}, {1, 2}},
                    {{40, "tran"_code, "glob"_code}, {"bltn"_code}},
                    {{40, "ssrc"_code, "outp"_code}, {"hdpn"_code}},
                    {{40, "jack"_code, "outp"_code}, {0}},
                    {{30, "stm#"_code, "outp"_code}, {}}, // a microphone
                    {{20, "stm#"_code, "outp"_code}, {3}},
                    {{20, "tran"_code, "glob"_code}, {"usb "_code}}};
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
        if (std::get<0>(address) == 40 && std::get<1>(address) != "stm#"_code)
            audio.unreadable.insert(address);
    EXPECT_EQ(readAudioOutput(audio, 40), (AudioOutputInfo{.id = 40, .name = "Output"}));

    audio.names.clear();
    EXPECT_EQ(readDefaultOutputName(audio), std::nullopt);
    audio.unreadable.insert({1, "dev#"_code, "glob"_code});
    EXPECT_TRUE(readAudioOutputs(audio).empty());
    EXPECT_TRUE(readAudioOutputs(FakeAudio()).empty());
    EXPECT_EQ(readDefaultOutputName(FakeAudio()), std::nullopt);
}

} // namespace
} // namespace tessivo
