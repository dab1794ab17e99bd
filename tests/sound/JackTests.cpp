#include "app/readers/Readers.h"
#include "app/readers/TonePlayer.h"
#include "platform/linux/LinuxAudioObjects.h"
#include "platform/linux/LinuxToneOutput.h"
#include "tests/sound/SoundTest.h"
#include "tests/sound/StandInCard.h"

#include <algorithm>

namespace tessivo {
namespace {

constexpr const char *speaker = "analog-output-speaker", *headphones = "analog-output-headphones",
                     *lineOut = "analog-output-lineout";

/// One card with one sink, whose active port is the speaker; nothing in the daemon follows a plug.
class JackTest : public SoundTest {
protected:
    void SetUp() override {
        SoundTest::SetUp();
        if (IsSkipped()) return;
        m_daemon.setOwnVariables(m_card.variables());
        start({m_card.module()}, 1, 1);
        m_daemon.run("pactl", {"set-sink-port", StandInCard::sink, speaker});
        ASSERT_TRUE(becomesActive(speaker));
    }

    bool becomesActive(const std::string& port) {
        return QTest::qWaitFor(
            [&] {
                const auto sinks = m_server->snapshot()->sinks;
                return sinks.size() == 1 && sinks[0].activePort == port;
            },
            SoundDaemon::patience);
    }
    std::optional<AudioOutputInfo> jack() { return HeadphoneDetect::find(readAudioOutputs(m_audio)); }
    bool plug(const std::string& name, bool in) {
        m_card.plug(name, in);
        return QTest::qWaitFor([&] { return jack().has_value() == in; }, SoundDaemon::patience);
    }
    static std::size_t sounding(const std::vector<float>& samples) {
        return std::size_t(std::ranges::count_if(samples, [](float sample) { return sample != 0; }));
    }
    static bool sounds(SoundRecorder& recorder) {
        return QTest::qWaitFor([&] { return sounding(recorder.channel(0)) > 4'800; }, SoundDaemon::patience);
    }
    /// Nothing sounds any more a little later, and only part of the tone did.
    static bool wasCut(SoundRecorder& recorder) {
        QTest::qWait(300);
        const std::size_t before = sounding(recorder.channel(0));
        QTest::qWait(400);
        return sounding(recorder.channel(0)) == before && before < 50'000;
    }

    StandInCard m_card;
    LinuxAudioObjects m_audio{m_server};
    LinuxToneOutput m_output{m_server};
};

TEST_F(JackTest, aJackBesideTheSpeakerIsFoundPlayedThroughAndLeftAsItWas) {
    EXPECT_EQ(jack(), std::nullopt);
    struct {
        const char *plug, *port, *name, *source, *output;
    } const cases[] = {{"Headphone Jack", headphones, "Headphones", "hdpn", "Headphone"},
                       {"Line Out Jack", lineOut, "Line Out", "line", "Line Out"}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        ASSERT_TRUE(plug(row.plug, true));
        const AudioOutputInfo found = *jack();
        EXPECT_EQ(found.name, row.name);
        EXPECT_EQ(found.dataSource, row.source);
        EXPECT_EQ(found.dataSourceName, row.name);
        EXPECT_TRUE(found.builtIn && found.jackConnected == true);
        EXPECT_TRUE(becomesActive(speaker)) << "seeing a jack changes nothing";

        TonePlayer player(m_output);
        player.route(found.id);
        SoundRecorder recorder(m_daemon, "card.monitor");
        for (const bool left : {true, false}) {
            const std::size_t before = sounding(recorder.channel(left ? 0 : 1));
            player.play(left, !left);
            ASSERT_TRUE(QTest::qWaitFor([&] { return sounding(recorder.channel(left ? 0 : 1)) > before; },
                                        SoundDaemon::patience));
            EXPECT_TRUE(becomesActive(row.port));
            EXPECT_TRUE(m_card.sounds(row.output) && !m_card.sounds("Speaker")) << "in the card itself";
            EXPECT_EQ(jack(), found) << "the same output while it plays";
            EXPECT_TRUE(becomesActive(speaker)) << "put back after the tone";
            EXPECT_TRUE(m_card.sounds("Speaker"));
        }
        // The monitor of a card that can rewind misses the beginning.
        for (const int channel : {0, 1})
            EXPECT_GT(sounding(recorder.channel(channel)), 50'000u) << channel;
        EXPECT_TRUE(plug(row.plug, false));
    }
}

TEST_F(JackTest, aToneThatLosesItsJackEnds) {
    ASSERT_TRUE(plug("Headphone Jack", true));
    struct {
        const char* name;
        std::function<void(std::unique_ptr<TonePlayer>&)> action;
        const char* port;
    } const cases[] = {
        {"the page is left", [](auto& player) { player.reset(); }, speaker},
        {"the route changes", [this](auto& player) { player->route(m_server->snapshot()->sinks[0].id); },
         speaker},
        {"the port flips back",
         [this](auto&) { m_daemon.run("pactl", {"set-sink-port", StandInCard::sink, speaker}); }, speaker},
        {"another port is chosen",
         [this](auto&) { m_daemon.run("pactl", {"set-sink-port", StandInCard::sink, lineOut}); }, lineOut},
        {"the plug is pulled", [this](auto&) { m_card.plug("Headphone Jack", false); }, speaker},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        auto player = std::make_unique<TonePlayer>(m_output);
        player->route(jack()->id);
        SoundRecorder recorder(m_daemon, "card.monitor");
        player->play(true, true);
        ASSERT_TRUE(sounds(recorder));
        ASSERT_TRUE(becomesActive(headphones));
        row.action(player);
        EXPECT_TRUE(wasCut(recorder));
        EXPECT_TRUE(becomesActive(row.port));
        m_daemon.run("pactl", {"set-sink-port", StandInCard::sink, speaker});
        ASSERT_TRUE(becomesActive(speaker));
    }
}

TEST_F(JackTest, aProgramThatQuitsInTheMiddlePutsThePortBack) {
    ASSERT_TRUE(plug("Headphone Jack", true));
    {
        const auto server = std::make_shared<PulseServer>(m_daemon.address());
        LinuxToneOutput output(server);
        ASSERT_TRUE(server->waitUntilSettled(std::chrono::milliseconds(SoundDaemon::patience)));
        TonePlayer player(output);
        player.route(server->snapshot()->outputs()[0].id());
        player.play(true, true);
        ASSERT_TRUE(becomesActive(headphones));
    }
    EXPECT_TRUE(m_daemon.run("pactl", {"list", "sinks"}).contains("Active Port: analog-output-speaker"));
}

TEST_F(JackTest, aRefusedPortIsNoOutputUntilItIsPluggedInAnew) {
    ASSERT_TRUE(plug("Headphone Jack", true));
    const auto ports = std::make_shared<PulsePorts>(*m_server);
    m_server->keepClient(ports);
    std::atomic<bool> refused = false;
    m_server->post([&](pa_context*, const PulseSnapshot&) {
        ports->take(this, StandInCard::sink, "no such port", [&](pa_context*, PortLoan::Outcome outcome) {
            refused = outcome == PortLoan::Outcome::refused;
        });
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return refused.load(); }, SoundDaemon::patience));

    const AudioOutputInfo found = *jack();
    m_server->post(
        [this](pa_context*, const PulseSnapshot&) { m_server->refuse(StandInCard::sink, headphones); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !jack(); }, SoundDaemon::patience));
    TonePlayer player(m_output);
    player.route(found.id);
    SoundRecorder recorder(m_daemon, "card.monitor");
    player.play(true, true);
    QTest::qWait(500);
    EXPECT_EQ(sounding(recorder.samples()), 0u);

    m_card.plug("Headphone Jack", false);
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return m_server->snapshot()->sinks[0].ports[2].available == PulseAvailability::no; },
        SoundDaemon::patience));
    EXPECT_TRUE(plug("Headphone Jack", true));
    EXPECT_EQ(jack(), found);
}

} // namespace
} // namespace tessivo
