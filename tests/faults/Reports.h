#pragma once

#include "kit/report/HistoryStore.h"

namespace tessivo {

/// A report of about `size` bytes whose every part hangs on `version`: a mixture of two would show.
inline ConditionReport versionedReport(int version, std::size_t size) {
    ConditionReport report;
    report.id = *Uuid::parse("6F9619FF-8B86-D011-B42D-00CF4FC964FF");
    report.created = Date{double(version)};
    report.machine = {"Mac14,2",    "SERIAL" + std::to_string(version),
                      std::nullopt, std::uint64_t(version),
                      "14.4",       std::nullopt};
    report.appVersion = std::to_string(version);
    while (report.notes.size() < size)
        report.notes += std::to_string(version) + " ";
    return report;
}

} // namespace tessivo
