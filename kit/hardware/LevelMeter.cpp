#include "kit/hardware/LevelMeter.h"

#include <algorithm>
#include <cmath>

namespace tessivo {
namespace {

/// The power of every `stride`th sample from `first` on.
double power(std::span<const float> samples, std::size_t first, std::size_t stride) {
    double sum = 0;
    std::size_t count = 0;
    for (std::size_t i = first; i < samples.size(); i += stride, ++count)
        sum += double(samples[i]) * double(samples[i]);
    const double mean = count == 0 ? 0 : sum / double(count);
    if (!std::isfinite(mean) || mean <= 0) return LevelMeter::silence;
    return std::max(LevelMeter::silence, 20 * std::log10(std::sqrt(mean)));
}

} // namespace

double LevelMeter::decibels(std::span<const float> samples) {
    return power(samples, 0, 1);
}

std::optional<double> LevelMeter::loudestChannel(std::span<const float> interleaved, int channelCount) {
    if (channelCount < 1 || interleaved.empty()) return std::nullopt;
    double loudest = silence;
    for (std::size_t channel = 0; channel < std::size_t(channelCount); ++channel)
        loudest = std::max(loudest, power(interleaved, channel, std::size_t(channelCount)));
    return loudest;
}

double LevelMeter::meterFraction(double decibels) {
    if (std::isnan(decibels)) return 0;
    return std::clamp((decibels + 60) / 60, 0.0, 1.0);
}

} // namespace tessivo
