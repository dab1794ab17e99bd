#pragma once

#include "kit/Samples.h"
#include "kit/report/ReportAssembler.h"

/// What the tests of comparing share: the seller's day and the buyer's, and their sessions.
namespace tessivo::comparisontest {

inline constexpr Date soldOn{794'448'429}; ///< March 6, 2026, 00:07:09 UTC
inline constexpr Date boughtOn{794'448'429 + 9 * 86'400};

inline ConditionReport report(const SessionState& session, Date at) {
    return ReportAssembler::make(session, at, "1.0", "");
}
/// The same tests run again some days later: what is measured never comes out alike to the last digit.
inline SessionState rerun() {
    SessionState session = Samples::session();
    session.started = Date{boughtOn.seconds - 600};
    session.microphones.front().peak = -11.5;
    return session;
}
inline void setBattery(SessionState& session, std::int64_t percent, std::int64_t cycles) {
    session.battery->designCapacity = 4000;
    session.battery->fullChargeCapacity = 40 * percent;
    session.battery->cycleCount = cycles;
}

} // namespace tessivo::comparisontest
