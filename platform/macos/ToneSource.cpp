#include "platform/macos/ToneSource.h"

#include <algorithm>

namespace tessivo {

void ToneSource::publish(std::vector<float> left, std::vector<float> right) {
    // Callbacks run one after another and the pointer only moves on: what is older than the tone that plays
    // is never looked at again.
    const Tone* playing = m_playing.load(std::memory_order_acquire);
    while (playing && m_tones.front().get() != playing)
        m_tones.pop_front();
    m_tones.push_back(std::make_unique<const Tone>(Tone{std::move(left), std::move(right)}));
    m_published.store(m_tones.back().get(), std::memory_order_release);
}

void ToneSource::clear() {
    m_published = nullptr;
    m_playing = nullptr;
    m_position = 0;
    m_tones.clear();
}

bool ToneSource::render(float* left, float* right, std::uint32_t frames) {
    const Tone* tone = m_published.load(std::memory_order_acquire);
    if (tone != m_playing.load(std::memory_order_relaxed)) {
        m_position = 0;
        m_playing.store(tone, std::memory_order_release);
    }
    const std::size_t rest = tone ? std::min(tone->left.size(), tone->right.size()) - m_position : 0;
    const std::size_t sounding = std::min<std::size_t>(rest, frames);
    if (sounding > 0) {
        std::copy_n(tone->left.data() + m_position, sounding, left);
        std::copy_n(tone->right.data() + m_position, sounding, right);
        m_position += sounding;
    }
    std::fill(left + sounding, left + frames, 0.0f);
    std::fill(right + sounding, right + frames, 0.0f);
    return sounding > 0;
}

} // namespace tessivo
