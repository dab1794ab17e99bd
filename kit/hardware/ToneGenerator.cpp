#include "kit/hardware/ToneGenerator.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tessivo {
namespace {

constexpr double fadeSeconds = 0.02;
constexpr double mostFrames = 1e8; ///< over half an hour; a rate that asks for more is no rate

} // namespace

StereoTone ToneGenerator::stereo(bool left, bool right, double frequency, double rate, double duration,
                                 float amplitude) {
    const double exact = rate * duration;
    if (!(exact >= 1 && exact <= mostFrames)) return {};
    const std::size_t frames = std::size_t(exact);
    const std::size_t fade = std::size_t(std::min(double(frames / 2), std::abs(rate) * fadeSeconds));

    std::vector<float> tone(frames);
    for (std::size_t i = 0; i < frames; ++i) {
        double envelope = amplitude;
        if (i < fade) envelope *= double(i) / double(fade);
        if (i >= frames - fade) envelope *= double(frames - 1 - i) / double(fade);
        tone[i] = float(envelope * std::sin(frequency * 2 * std::numbers::pi * double(i) / rate));
    }
    const std::vector<float> silence(frames);
    return {left ? tone : silence, right ? tone : silence};
}

} // namespace tessivo
