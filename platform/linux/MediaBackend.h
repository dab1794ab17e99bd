#pragma once

namespace tessivo {

/// Chooses the part of Qt that talks to cameras, and that their pictures are made without a graphics driver.
/// It does so in the environment, which other threads read: to be made before any of them begins.
class MediaBackend final {
public:
    MediaBackend();
};

} // namespace tessivo
