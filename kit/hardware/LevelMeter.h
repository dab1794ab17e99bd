#pragma once

#include <optional>
#include <span>

/// Samples to decibels relative to full scale, decibels to a meter position. Pure, allocates nothing.
namespace tessivo::LevelMeter {

/// A level at or above this counts as hearing something, in dB.
inline constexpr double threshold = -35.0;
/// What silence reads as, in dB.
inline constexpr double silence = -160.0;

/// The power of the samples, never below -160. A buffer with samples that aren't numbers reads as silence.
double decibels(std::span<const float> samples);
/// The highest of the channels' powers in an interleaved buffer; nothing without channels or samples.
std::optional<double> loudestChannel(std::span<const float> interleaved, int channelCount);
/// 0 at -60 dB and below, 1 at 0 dB and above.
double meterFraction(double decibels);

} // namespace tessivo::LevelMeter
