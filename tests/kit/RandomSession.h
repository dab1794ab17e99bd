#pragma once

#include "kit/report/ConditionReport.h"
#include "kit/session/SessionState.h"

#include <random>

namespace tessivo {

/// Random valid sessions and reports, the same ones for the same seed. Every member that is stored varies,
/// the borders of its range included.
class RandomSession final {
public:
    explicit RandomSession(std::uint64_t seed) : m_source(seed) {}

    SessionState session();
    /// With a whole second between the years 1 and 9999, as a report file can hold it.
    ConditionReport report();
    /// Valid UTF-8: plain words, other scripts, quotes, control characters, NUL.
    std::string text();

private:
    std::mt19937_64 m_source;
};

} // namespace tessivo
