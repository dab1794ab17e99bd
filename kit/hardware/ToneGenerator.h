#pragma once

#include <vector>

namespace tessivo {

/// Samples of the left and the right channel, of equal length.
struct StereoTone {
    std::vector<float> left;
    std::vector<float> right;
};

namespace ToneGenerator {
/// A sine with 20 ms fades (half of a very short tone). Frequency and rate in Hz, duration in seconds.
/// A channel that is off is true silence; less than one frame gives two empty lists.
StereoTone stereo(bool left, bool right, double frequency, double rate, double duration, float amplitude);
} // namespace ToneGenerator

} // namespace tessivo
