#include "kit/report/HistoryStore.h"

#include <cmath>
#include <system_error>
#include <unistd.h>
#include <unordered_map>

namespace tessivo {

namespace {

using std::filesystem::path;

path fileOf(const path& folder, const Uuid& id) {
    return folder / (id.text() + ".json");
}

bool isReportName(const path& name) {
    return name.extension() == ".json" && !name.native().starts_with("._");
}

/// Reports of one moment keep their order; one without a real date goes last.
void sortNewestFirst(std::vector<ConditionReport>& reports) {
    const auto moment = [](const ConditionReport& report) {
        return std::isnan(report.created.seconds) ? -HUGE_VAL : report.created.seconds;
    };
    std::stable_sort(reports.begin(), reports.end(),
                     [&](const auto& a, const auto& b) { return moment(a) > moment(b); });
}

/// The names of what may be reports, sorted, so that the order of a listing doesn't hang on the disk.
std::vector<path> reportNames(const path& folder) {
    std::vector<path> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (path name = entry->path().filename(); isReportName(name)) names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

void HistoryStore::save(const ConditionReport& report) const {
    Files::Calls calls;
    save(report, calls);
}

void HistoryStore::save(const ConditionReport& report, Files::Calls& calls) const {
    Files::createFolders(folder, calls);
    const std::string bytes = encode(report);
    // What no listing would ever read again must not look saved.
    if (bytes.size() > largestFile)
        throw std::system_error(std::make_error_code(std::errc::file_too_large), "can't save the report");
    Files::writeAtomically(fileOf(folder, report.id), bytes, calls);
    Files::removeStrays(folder);
}

std::vector<ConditionReport> HistoryStore::list() const try {
    std::vector<ConditionReport> reports;
    std::string bytes;
    for (const path& name : reportNames(folder)) {
        try {
            Files::read(folder / name, largestFile, bytes);
            reports.push_back(decode(bytes));
        } catch (const std::exception&) { // no report: it stays where it is and stops nobody
        }
    }
    sortNewestFirst(reports);
    return reports;
} catch (const std::exception&) {
    return {};
}

void HistoryStore::remove(const Uuid& id) const {
    const path file = fileOf(folder, id);
    if (::unlink(file.c_str()) < 0)
        throw std::system_error(errno, std::generic_category(), "can't delete “" + file.string() + "”");
}

ConditionReport HistoryStore::importFile(const path& file) const {
    ConditionReport report = decode(Files::read(file, largestFile));
    save(report);
    return report;
}

std::vector<HistoryStore::Group> HistoryStore::grouped(std::vector<ConditionReport> reports) {
    sortNewestFirst(reports);
    std::vector<Group> groups;
    std::unordered_map<std::string, std::size_t> places;
    for (ConditionReport& report : reports) {
        const std::string key = report.machine.serial.value_or(report.machine.modelID);
        const auto [place, isNew] = places.emplace(key, groups.size());
        if (isNew) groups.push_back({key, {}});
        groups[place->second].reports.push_back(std::move(report));
    }
    return groups;
}

} // namespace tessivo
