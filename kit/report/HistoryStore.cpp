#include "kit/report/HistoryStore.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <functional>
#include <future>
#include <numeric>
#include <system_error>
#include <thread>
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

/// What reports are sorted by: one without a real date goes last.
double moment(const ConditionReport& report) {
    return std::isnan(report.created.seconds) ? -HUGE_VAL : report.created.seconds;
}

/// The names of what may be reports, sorted, so that the order of a listing doesn't hang on the disk.
std::vector<std::string> reportNames(const path& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (const path name = entry->path().filename(); isReportName(name)) names.push_back(name.native());
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// Reading is shared out in portions; a folder of one portion costs no thread.
constexpr std::size_t portion = 64;
constexpr std::size_t mostHands = 8;

using MaybeReports = std::vector<std::optional<ConditionReport>>;

/// Fills the places of the names from `first` on, one portion of them. What is no report stays where it
/// is, leaves its place empty and stops nobody.
void readPortion(const path& folder, const std::vector<std::string>& names, std::size_t first,
                 MaybeReports& reports) {
    std::string bytes;
    for (std::size_t i = first; i < std::min(first + portion, names.size()); ++i) {
        try {
            Files::read(folder / names[i], HistoryStore::largestFile, bytes);
            reports[i] = HistoryStore::decode(bytes);
        } catch (const std::exception&) {
        }
    }
}

/// Reads all the files, in a few threads where there are many. Each place is written by one thread alone.
MaybeReports readAll(const path& folder, const std::vector<std::string>& names) {
    MaybeReports reports(names.size());
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t first; (first = next.fetch_add(portion)) < names.size();)
            readPortion(folder, names, first, reports);
    };
    const std::size_t portions = (names.size() + portion - 1) / portion;
    const std::size_t hands =
        std::min({portions, std::size_t(std::thread::hardware_concurrency()), mostHands});
    std::vector<std::future<void>> helpers;
    try {
        while (helpers.size() + 1 < hands)
            helpers.push_back(std::async(std::launch::async, work));
    } catch (const std::exception&) { // no thread to be had: fewer hands do the same work
    }
    work();
    helpers.clear(); // waits for them
    return reports;
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
    MaybeReports found = readAll(folder, reportNames(folder));
    std::vector<ConditionReport> reports;
    reports.reserve(found.size());
    for (auto& report : found)
        if (report) reports.push_back(std::move(*report));
    std::ranges::stable_sort(reports, std::greater{}, moment); // those of one moment keep their order
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
    std::vector<Group> groups;
    for (const GroupPlaces& group : groupedPlaces(reports)) {
        groups.push_back({group.key, {}});
        for (const std::size_t place : group.places)
            groups.back().reports.push_back(std::move(reports[place]));
    }
    return groups;
}

std::vector<HistoryStore::GroupPlaces>
HistoryStore::groupedPlaces(const std::vector<ConditionReport>& reports) {
    std::vector<std::size_t> order(reports.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, std::greater{},
                             [&](std::size_t place) { return moment(reports[place]); });
    std::vector<GroupPlaces> groups;
    std::unordered_map<std::string_view, std::size_t> known;
    for (const std::size_t place : order) {
        const MachineInfo& machine = reports[place].machine;
        const std::string& key = machine.serial ? *machine.serial : machine.modelID;
        const auto [group, isNew] = known.emplace(key, groups.size());
        if (isNew) groups.push_back({key, {}});
        groups[group->second].places.push_back(place);
    }
    return groups;
}

} // namespace tessivo
