#include "app/readers/TonePlayer.h"

#include "kit/hardware/ToneGenerator.h"

namespace tessivo {

TonePlayer::TonePlayer(ToneOutput& output) : m_engine(output.makeEngine()) {}

TonePlayer::~TonePlayer() {
    m_engine->stop();
}

void TonePlayer::play(bool left, bool right, double seconds) {
    double rate = m_engine->outputFormat().sampleRate;
    if (!(rate > 0)) rate = fallbackRate;
    StereoTone tone = ToneGenerator::stereo(left, right, frequency, rate, seconds, amplitude);
    if (tone.left.empty()) return;
    if (!m_engine->isRunning() && !m_engine->start()) return;
    m_engine->schedule(std::move(tone.left), std::move(tone.right), rate);
}

void TonePlayer::route(std::optional<std::uint32_t> device) {
    if (m_device == device) return;
    m_device = device;
    if (m_engine->isRunning()) m_engine->stop();
    if (device) m_engine->setDevice(*device);
}

std::uint32_t TonePlayer::outputChannels() const {
    return m_engine->outputFormat().channelCount;
}

} // namespace tessivo
