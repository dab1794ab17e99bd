#pragma once

#include "kit/report/ConditionReport.h"
#include "kit/support/Files.h"

#include <filesystem>
#include <string_view>

namespace tessivo {

/// A folder of report files, one JSON file a report. The folder is the truth: every operation goes to
/// the disk and nothing is cached. A save replaces a file whole or leaves it as it was.
struct HistoryStore {
    std::filesystem::path folder;

    /// A file larger than this is never a report, in bytes.
    static constexpr std::uintmax_t largestFile = 16u << 20;

    struct Group {
        std::string key; ///< serial, or model identifier where there is none
        std::vector<ConditionReport> reports;
    };
    struct GroupPlaces {
        std::string key;
        std::vector<std::size_t> places; ///< never empty
    };

    /// Throws std::system_error in words when the folder or the file can't be written or the file would be
    /// larger than `largestFile`, and std::invalid_argument when `encode` does.
    void save(const ConditionReport& report) const;
    void save(const ConditionReport& report, Files::Calls& calls) const;
    /// All reports that can be read, newest first. Never throws; a file that isn't a report is passed over.
    std::vector<ConditionReport> list() const;
    /// Throws std::system_error when there is no such file.
    void remove(const Uuid& id) const;
    /// Reads a report file from anywhere and saves it here. Throws what reading, decoding or saving throws.
    ConditionReport importFile(const std::filesystem::path& file) const;

    /// The bytes of a report file, and back. `decode` throws DecodingError; `encode` throws
    /// std::invalid_argument for a date outside the years 0 to 9999, which no report file can hold.
    static std::string encode(const ConditionReport& report);
    static ConditionReport decode(std::string_view bytes);
    /// Newest first; the machine tested last comes first.
    static std::vector<Group> grouped(std::vector<ConditionReport> reports);
    /// The same groups as places in the list, for whoever doesn't need copies.
    static std::vector<GroupPlaces> groupedPlaces(const std::vector<ConditionReport>& reports);
};

} // namespace tessivo
