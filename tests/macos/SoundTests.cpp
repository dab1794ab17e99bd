#include "platform/macos/ToneSource.h"
#include "tests/macos/MacFixture.h"

#include <cstdlib>
#include <dlfcn.h>
#include <new>
#include <pthread.h>
#include <thread>

namespace {

/// Counts what the thread that renders must never do.
thread_local bool isRendering = false;
thread_local int forbidden = 0;

} // namespace

// A sanitizer counts allocations and locks of its own.
#ifndef TESSIVO_SANITIZED
void* operator new(std::size_t size) {
    forbidden += isRendering;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    forbidden += isRendering;
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    forbidden += isRendering;
    std::free(memory);
}

extern "C" int pthread_mutex_lock(pthread_mutex_t* mutex) {
    static const auto real =
        reinterpret_cast<int (*)(pthread_mutex_t*)>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
    forbidden += isRendering;
    return real(mutex);
}
#endif

namespace tessivo {
namespace {

using testing::Each;
using testing::ElementsAre;

using MacAudioTest = Mac;
using MacToneTest = Mac;

constexpr std::uint32_t global = fourCharCode("glob");
constexpr std::uint32_t output = fourCharCode("outp");

TEST_F(MacAudioTest, anOutputThatGoesWhileItIsReadIsLeftOut) {
    load("macbook-pro-t2-worn.json");
    const auto before = readAudioOutputs(MacAudioObjects());
    ASSERT_FALSE(before.empty());
    const auto gone = before.front().id;
    int sizes = 0;
    system.beforeCall = [&](int, const std::string& call) {
        // Between the list and the question for its first device's streams.
        if (call == "AudioObjectGetPropertyDataSize" && ++sizes == 3)
            std::erase_if(*system.audio.devices, [&](const auto& device) { return device.id == gone; });
    };
    for (const AudioOutputInfo& info : readAudioOutputs(MacAudioObjects()))
        EXPECT_NE(info.id, gone);
}

TEST_F(MacAudioTest, theListIsAsLongAsItIsWhenItIsRead) {
    load("macbook-pro-t2-worn.json");
    const MacAudioObjects audio;
    const auto ids = [&] {
        return audio.numbers({AudioObjects::systemObject, fourCharCode("dev#"), global});
    };
    std::vector<std::uint32_t> all;
    for (const auto& device : *system.audio.devices)
        all.push_back(device.id);
    EXPECT_EQ(ids(), all);
    system.beforeCall = [&](int, const std::string& call) {
        if (call == "AudioObjectGetPropertyData") system.audio.devices->pop_back();
    };
    all.pop_back();
    EXPECT_EQ(ids(), all);
}

TEST_F(MacAudioTest, aTextIsNoNumberAndANumberNoText) {
    load("macbook-pro-t2-worn.json");
    const MacAudioObjects audio;
    const auto id = audio.numbers({AudioObjects::systemObject, fourCharCode("dOut"), global}).value().front();
    EXPECT_TRUE(audio.text({id, fourCharCode("lnam"), global}));
    EXPECT_EQ(audio.numbers({id, fourCharCode("lnam"), global}), std::nullopt);
    EXPECT_EQ(audio.numbers({id, fourCharCode("lscn"), output}), std::nullopt);
    EXPECT_EQ(audio.text({id, fourCharCode("tran"), global}), std::nullopt);
    EXPECT_EQ(audio.translatedText({id, fourCharCode("ssrc"), output}, 1), std::nullopt);
    EXPECT_FALSE(audio.hasProperty({id, fourCharCode("tran"), output}));
    EXPECT_EQ(audio.propertyDataSize({7777, fourCharCode("stm#"), output}), std::nullopt);
}

class Playing : public Mac {
protected:
    Playing() {
        load("macbook-pro-t2-worn.json");
        device = system.audio.devices->back().id;
    }
    std::uint32_t device = 0;
};

TEST_F(Playing, followsThePersonsChoiceUntilADeviceIsNamed) {
    const auto engine = MacToneOutput().makeEngine();
    for (auto& each : *system.audio.devices)
        each.format = {.sampleRate = {44100.0 + each.id}, .channelCount = each.id};
    EXPECT_EQ(engine->outputFormat().channelCount, *system.audio.defaultOutput);
    ASSERT_TRUE(engine->start());
    EXPECT_TRUE(engine->isRunning());
    ASSERT_TRUE(engine->setDevice(device));
    EXPECT_FALSE(engine->isRunning());
    EXPECT_EQ(engine->outputFormat().sampleRate, 44100.0 + device);
    ASSERT_TRUE(engine->start());
    EXPECT_EQ(system.units.front()->device, device);
    EXPECT_EQ(system.units.front()->clientRate, 44100.0 + device);
}

/// A tone that was meant for the jack must sound nowhere else.
TEST_F(Playing, soundsNowhereWhereItsDeviceIsGone) {
    const auto engine = MacToneOutput().makeEngine();
    EXPECT_FALSE(engine->setDevice(4711));
    EXPECT_FALSE(engine->start());
    engine->schedule({0.5f}, {0.5f}, 48000);
    EXPECT_TRUE(system.render(8).first.empty());
    EXPECT_EQ(engine->outputFormat().channelCount, 0u);

    ASSERT_TRUE(engine->setDevice(device));
    ASSERT_TRUE(engine->start());
    system.audio.devices->clear();
    EXPECT_FALSE(engine->isRunning()); // the unit's own answer
    EXPECT_FALSE(engine->start());
}

TEST_F(Playing, playsEachSideToTheLastSampleThenSilence) {
    const auto engine = MacToneOutput().makeEngine();
    ASSERT_TRUE(engine->start());
    const double rate = engine->outputFormat().sampleRate;
    engine->schedule({0.1f, 0.2f, 0.3f}, {0, 0, 0}, rate);
    EXPECT_THAT(system.render(2), testing::Pair(ElementsAre(0.1f, 0.2f), Each(0.0f)));
    EXPECT_THAT(system.render(2), testing::Pair(ElementsAre(0.3f, 0.0f), Each(0.0f)));
    // A new tone begins at its first sample; another rate goes in as it is.
    engine->schedule({0, 0}, {0.4f, 0.5f}, rate / 2);
    EXPECT_EQ(system.units.front()->clientRate, rate / 2);
    EXPECT_THAT(system.render(1), testing::Pair(Each(0.0f), ElementsAre(0.4f)));
    engine->schedule({0.6f}, {0.7f}, rate / 2);
    EXPECT_THAT(system.render(1), testing::Pair(ElementsAre(0.6f), ElementsAre(0.7f)));
    engine->stop();
    engine->schedule({0.8f}, {0.8f}, rate);
    EXPECT_TRUE(system.render(1).first.empty());
    ASSERT_TRUE(engine->start());
    EXPECT_THAT(system.render(1).first, ElementsAre(0.0f)); // nothing of an earlier tone
}

/// The same of the unit's whole callback, from the system's side.
TEST_F(Playing, rendersWithoutAllocatingOrLocking) {
    const auto engine = MacToneOutput().makeEngine();
    ASSERT_TRUE(engine->start());
    float left[256], right[256];
    forbidden = 0;
    for (int tone = 0; tone < 20; ++tone) {
        engine->schedule(std::vector(1000, 0.5f), std::vector(1000, 0.5f), engine->outputFormat().sampleRate);
        for (int call = 0; call < 5; ++call) {
            isRendering = true;
            const bool rendered = system.units.front()->render(left, right, 256);
            isRendering = false;
            EXPECT_TRUE(rendered);
        }
    }
    EXPECT_EQ(forbidden, 0);
}

TEST_F(MacToneTest, aCallbackNeverAllocatesNorLocks) {
    ToneSource source;
    std::atomic<bool> done = false;
    std::atomic<int> faults = 0;
    std::atomic<int> wrong = 0;
    std::atomic<int> rendered = 0;
    std::thread renders([&] {
        float left[64], right[64];
        while (!done) {
            isRendering = true;
            source.render(left, right, 64);
            isRendering = false;
            // Both sides come from the same tone at the same place.
            for (int i = 0; i < 64; ++i)
                wrong += left[i] != -right[i];
            ++rendered;
        }
        faults = forbidden;
    });
    for (int tone = 0; tone < 5000 || rendered < 1000; ++tone)
        source.publish(std::vector(100, float(tone)), std::vector(100, -float(tone)));
    done = true;
    renders.join();
    EXPECT_EQ(faults, 0);
    EXPECT_EQ(wrong, 0);
}

} // namespace
} // namespace tessivo
