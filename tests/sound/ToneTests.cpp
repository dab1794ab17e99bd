#include "app/readers/Readers.h"
#include "app/readers/TonePlayer.h"
#include "kit/hardware/ToneGenerator.h"
#include "platform/linux/LinuxAudioObjects.h"
#include "platform/linux/LinuxToneOutput.h"
#include "tests/sound/SoundTest.h"

#include <algorithm>
#include <cmath>

namespace tessivo {
namespace {

constexpr std::size_t frames = 57'600;

bool isSilent(const std::vector<float>& samples) {
    return std::ranges::all_of(samples, [](float sample) { return sample == 0; });
}

std::size_t firstSound(const std::vector<float>& samples) {
    return std::size_t(std::ranges::find_if(samples, [](float sample) { return sample != 0; }) -
                       samples.begin());
}

/// The tone that stands in a recording as 57,600 frames from its first, silent one on; empty without one.
std::vector<float> toneIn(const std::vector<float>& samples, std::size_t from = 0) {
    const std::vector<float> rest(samples.begin() + std::ptrdiff_t(from), samples.end());
    const std::size_t first = firstSound(rest);
    if (first == 0 || first + frames > rest.size()) return {};
    return {rest.begin() + std::ptrdiff_t(first - 1), rest.begin() + std::ptrdiff_t(first - 1 + frames)};
}

/// In Hz, by the upward crossings of zero in the middle second.
double frequency(const std::vector<float>& tone) {
    std::vector<double> crossings;
    for (std::size_t i = 4'800; i < 52'800; ++i)
        if (tone[i] < 0 && tone[i + 1] >= 0)
            crossings.push_back(double(i) + double(tone[i]) / (double(tone[i]) - double(tone[i + 1])));
    return 48'000 * double(crossings.size() - 1) / (crossings.back() - crossings.front());
}

void expectWholeTone(const std::vector<float>& samples) {
    const std::vector<float> tone = toneIn(samples);
    ASSERT_EQ(tone.size(), frames);
    EXPECT_NEAR(frequency(tone), 523.25, 0.01);
    EXPECT_NEAR(*std::ranges::max_element(tone), 0.3, 1e-4);
    EXPECT_NEAR(*std::ranges::min_element(tone), -0.3, 1e-4);
    for (std::size_t i = 0; i < 960; ++i) { // 20 ms of fade at either end
        const double envelope = 0.3 * double(i) / 960 + 1e-6;
        ASSERT_LE(std::abs(tone[i]), envelope) << i;
        ASSERT_LE(std::abs(tone[frames - 1 - i]), envelope) << i;
    }
    EXPECT_EQ(tone, ToneGenerator::stereo(true, false, 523.25, 48'000, 1.2, 0.3f).left) << "bit for bit";
    EXPECT_EQ(std::size_t(std::ranges::count_if(samples, [](float sample) { return sample != 0; })),
              std::size_t(std::ranges::count_if(tone, [](float sample) { return sample != 0; })))
        << "nothing sounds before or after the tone";
}

class ToneTest : public SoundTest {
protected:
    static void waitForTone() { QTest::qWait(1'200 + 600); }

    std::uint32_t id(const std::string& sink) { return m_server->snapshot()->sinkNamed(sink)->id; }

    LinuxAudioObjects m_audio{m_server};
    LinuxToneOutput m_output{m_server};
};

TEST_F(ToneTest, theChosenSideSoundsAndTheOtherIsExactSilence) {
    start({nullSink("one")}, 1, 1);
    const bool cases[][2] = {{true, false}, {false, true}, {true, true}};
    for (const auto& [left, right] : cases) {
        SCOPED_TRACE(left ? right ? "both" : "left" : "right");
        TonePlayer player(m_output);
        SoundRecorder recorder(m_daemon, "one.monitor");
        ASSERT_TRUE(recorder.flowing);
        player.play(left, right);
        waitForTone();
        const bool on[] = {left, right};
        for (int channel = 0; channel < 2; ++channel)
            if (on[channel])
                expectWholeTone(recorder.channel(channel));
            else
                EXPECT_TRUE(isSilent(recorder.channel(channel)));
    }
}

TEST_F(ToneTest, theRoutedDeviceAloneSounds) {
    start({nullSink("one"), nullSink("two")}, 2, 2);
    TonePlayer player(m_output);
    player.route(id("two"));
    SoundRecorder one(m_daemon, "one.monitor"), two(m_daemon, "two.monitor");
    player.play(true, false);
    waitForTone();
    EXPECT_TRUE(isSilent(one.samples()));
    expectWholeTone(two.channel(0));
    EXPECT_TRUE(isSilent(two.channel(1)));
}

TEST_F(ToneTest, aToneForADeviceThatIsGoneSoundsNowhere) {
    start({nullSink("one"), nullSink("two")}, 2, 2);
    TonePlayer player(m_output);
    player.route(id("two"));
    SoundRecorder one(m_daemon, "one.monitor");
    player.play(true, true);
    QTest::qWait(200);
    // Heard before its sink goes: the server would move the recording to the other one.
    EXPECT_TRUE(isSilent(one.samples()));
    m_daemon.run("pactl", {"unload-module", "module-null-sink"}); // both
    ASSERT_TRUE(hasDevices(0, 0));
    m_daemon.run("pactl", {"load-module", "module-null-sink", "sink_name=one", "rate=48000"});
    ASSERT_TRUE(hasDevices(1, 1));
    SoundRecorder again(m_daemon, "one.monitor");
    player.play(true, true);
    QTest::qWait(500);
    EXPECT_TRUE(isSilent(again.samples()));
}

TEST_F(ToneTest, aNewToneReplacesASoundingOne) {
    start({nullSink("one")}, 1, 1);
    TonePlayer player(m_output);
    SoundRecorder recorder(m_daemon, "one.monitor");
    player.play(true, false);
    QTest::qWait(400);
    player.play(false, true);
    waitForTone();
    const std::vector<float> left = recorder.channel(0), right = recorder.channel(1);
    const std::size_t begin = firstSound(left);
    ASSERT_LT(begin, left.size());
    const std::size_t lastLeft = left.size() - firstSound({left.rbegin(), left.rend()});
    EXPECT_LT(lastLeft - begin, frames - 9'600) << "the first tone was cut";
    EXPECT_EQ(toneIn(right).size(), frames);
    EXPECT_LE(lastLeft, firstSound(right) + 4'800) << "the two hardly overlap";
}

TEST_F(ToneTest, routingAndLettingGoEndTheToneAtOnce) {
    start({nullSink("one"), nullSink("two")}, 2, 2);
    for (const bool letGo : {false, true}) {
        SCOPED_TRACE(letGo ? "the player goes" : "the player is routed");
        auto player = std::make_unique<TonePlayer>(m_output);
        SoundRecorder recorder(m_daemon, "one.monitor");
        player->play(true, true);
        QTest::qWait(300);
        if (letGo)
            player.reset();
        else
            player->route(id("two"));
        QTest::qWait(200);
        const std::size_t cut = recorder.samples().size();
        QTest::qWait(1'200);
        const std::vector<float> all = recorder.samples();
        EXPECT_FALSE(isSilent({all.begin(), all.begin() + std::ptrdiff_t(cut)}));
        EXPECT_TRUE(isSilent({all.begin() + std::ptrdiff_t(cut), all.end()}));
    }
}

TEST_F(ToneTest, ofOtherThanTwoSpeakersOnlyTheFrontOneSounds) {
    for (const int channels : {6, 1}) {
        start({nullSink("one", channels)}, 1, 1);
        TonePlayer player(m_output);
        EXPECT_EQ(player.outputChannels(), std::uint32_t(channels));
        SoundRecorder recorder(m_daemon, "one.monitor", channels);
        player.play(true, channels == 1);
        waitForTone();
        expectWholeTone(recorder.channel(0, channels));
        for (int channel = 1; channel < channels; ++channel)
            EXPECT_TRUE(isSilent(recorder.channel(channel, channels))) << channel;
        m_daemon.kill();
        ASSERT_TRUE(hasDevices(0, 0));
    }
}

TEST_F(ToneTest, outputsCarryTheServersNamesAndStableIDs) {
    const QString longName(10'000, 'x');
    const QString odd = QString::fromUtf8("Two\nlines \u05d0\u05d1\u05d2");
    start({nullSink("one", 2, "sink_properties=device.description='" + longName + "'")}, 1, 1);
    m_daemon.run("pactl", {"load-module", "module-null-sink", "sink_name=two",
                           "sink_properties='device.description=\"" + odd + "\" device.bus=pci'"});
    ASSERT_TRUE(hasDevices(2, 2));
    const auto outputs = readAudioOutputs(m_audio);
    ASSERT_EQ(outputs.size(), 2u);
    EXPECT_EQ(outputs[0].name, longName.toStdString());
    EXPECT_FALSE(outputs[0].builtIn);
    EXPECT_EQ(outputs[1].name, odd.toStdString());
    EXPECT_TRUE(outputs[1].builtIn);
    EXPECT_EQ(outputs[1].jackConnected, std::nullopt);
    EXPECT_EQ(HeadphoneDetect::find(outputs), std::nullopt);
    for (const auto& [sink, name] : {std::pair("one", longName), std::pair("two", odd)}) {
        m_daemon.run("pactl", {"set-default-sink", sink});
        EXPECT_TRUE(QTest::qWaitFor(
            [&, name = name] { return readDefaultOutputName(m_audio) == name.toStdString(); }));
    }

    m_daemon.kill();
    ASSERT_TRUE(hasDevices(0, 0));
    start({nullSink("two"), nullSink("one")}, 2, 2);
    const auto restarted = readAudioOutputs(m_audio);
    EXPECT_EQ(restarted[0].id, outputs[1].id);
    EXPECT_EQ(restarted[1].id, outputs[0].id);
}

TEST_F(ToneTest, aDaemonThatDiesEndsTheToneAndANewOneIsFound) {
    start({nullSink("one")}, 1, 1);
    TonePlayer player(m_output);
    player.play(true, true);
    QTest::qWait(200);
    m_daemon.kill();
    ASSERT_TRUE(hasDevices(0, 0));
    EXPECT_TRUE(readAudioOutputs(m_audio).empty());
    EXPECT_EQ(readDefaultOutputName(m_audio), std::nullopt);
    EXPECT_EQ(player.outputChannels(), 0u);
    player.play(true, true); // heard by nobody, and no harm done

    start({nullSink("one")}, 1, 1);
    SoundRecorder recorder(m_daemon, "one.monitor");
    player.play(true, false);
    waitForTone();
    expectWholeTone(recorder.channel(0));
}

} // namespace
} // namespace tessivo
