#pragma once

#include "kit/session/MacIdentity.h"

#include <string_view>
#include <vector>

namespace tessivo {

/// A stored session as it was set aside when another Mac took its place, with the notes that go with it.
struct ShelvedSession {
    std::optional<std::string> serial;
    std::string modelID;
    HardwareKeys keys;
    std::string session; ///< the stored bytes, as they were
    std::string notes;

    bool operator==(const ShelvedSession&) const = default;
};
BOOST_DESCRIBE_STRUCT(ShelvedSession, (), (serial, modelID, keys, session, notes))

/// The sessions of other Macs that were tested with the same defaults, as from a stick that goes from Mac to
/// Mac. Oldest first.
struct SessionShelf {
    /// Beyond this the oldest go.
    static constexpr std::size_t mostSessions = 256;
    /// In bytes of sessions and notes; the newest stays whatever its size.
    static constexpr std::size_t mostBytes = 8u << 20;

    struct Found {
        std::size_t index = 0;
        MacMatch match = MacMatch::different;
    };

    std::vector<ShelvedSession> sessions;

    void put(ShelvedSession session);
    /// The session that most speaks for being of this Mac, of equal ones the newest. Nothing unless the
    /// serial number, a key or at least a known model speaks for it.
    std::optional<Found> find(const MacIdentity& current) const;

    std::string encode() const;
    /// Nothing if the text isn't a shelf.
    static std::optional<SessionShelf> decode(std::string_view json);

    bool operator==(const SessionShelf&) const = default;
};
BOOST_DESCRIBE_STRUCT(SessionShelf, (), (sessions))

/// The keys as they stand beside the session; what can't be read is no key.
std::string encode(const HardwareKeys& keys);
HardwareKeys decodeHardwareKeys(std::string_view json);

} // namespace tessivo
