#include "kit/report/HistoryStore.h"
#include "kit/support/Json.h"
#include "tests/TemporaryFolder.h"
#include "tests/kit/RandomSession.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <system_error>

namespace tessivo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ConditionReport report(const std::string& serial, double created) {
    RandomSession random(std::hash<std::string>()(serial) + std::uint64_t(std::int64_t(created)));
    ConditionReport report = random.report();
    report.machine.serial = serial;
    report.created = Date{created};
    return report;
}

std::vector<Uuid> ids(const std::vector<ConditionReport>& reports) {
    std::vector<Uuid> ids;
    for (const ConditionReport& report : reports)
        ids.push_back(report.id);
    return ids;
}

class HistoryStoreTests : public testing::Test {
protected:
    TemporaryFolder folder;
    HistoryStore store{folder / "Support/Tessivo/History"}; // not made yet

    std::filesystem::path place(const std::string& name, std::string_view bytes) {
        std::filesystem::create_directories(store.folder);
        std::ofstream(store.folder / name, std::ios::binary) << bytes;
        return store.folder / name;
    }
};

TEST_F(HistoryStoreTests, aMissingFolderListsNothingAndIsNotMade) {
    EXPECT_THAT(store.list(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(store.folder));
    EXPECT_THAT(HistoryStore{folder.write("file", "x")}.list(), IsEmpty());
    EXPECT_THAT(HistoryStore{}.list(), IsEmpty());
}

TEST_F(HistoryStoreTests, savesUnderTheUpperCaseIdReplacesAndClearsOldStraysAway) {
    ConditionReport saved = report("S", 100);
    std::filesystem::last_write_time(place(".tessivo-0123456789abcdef.saving", "half a rep"),
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(2));
    store.save(saved);
    saved.notes = "second thoughts";
    store.save(saved);
    EXPECT_THAT(namesIn(store.folder), ElementsAre(saved.id.text() + ".json"));
    EXPECT_THAT(store.list(), ElementsAre(saved));
}

/// More than one thread's portion, so that the order and what is passed over don't hang on who reads what.
TEST_F(HistoryStoreTests, listsNewestFirstAndEqualDatesByFileName) {
    ConditionReport one = report("S", 100);
    std::vector<ConditionReport> reports;
    for (int i = 0; i < 500; ++i) {
        one.id = Uuid::random();
        one.created = Date{double(i / 25)};
        reports.push_back(one);
        place(one.id.text() + ".json", HistoryStore::encode(one));
        if (i % 7 == 0) place(one.id.text() + " copy.json", "{");
    }
    std::ranges::sort(reports, [](const auto& a, const auto& b) {
        return a.created != b.created ? a.created > b.created : a.id < b.id;
    });
    EXPECT_TRUE(store.list() == reports);
}

TEST_F(HistoryStoreTests, theNameDecidesWhatIsReadAndNothingElse) {
    const ConditionReport one = report("S", 100);
    const std::string bytes = HistoryStore::encode(one);
    for (const char* name : {"X.JSON", "notes.txt", "._ABC.json", "json", ".json", "a.json.bak", "a.json~",
                             "b.Json", ".tessivo-0123456789abcdef.saving"})
        place(name, bytes);
    EXPECT_THAT(store.list(), IsEmpty());
    for (const char* name : {"any name.json", ".hidden.json", "..json", "_.json", "é\xFF.json"})
        place(name, bytes);
    EXPECT_EQ(store.list().size(), 5u);
    EXPECT_EQ(store.list().front(), one);
}

TEST_F(HistoryStoreTests, whatIsNoReportStaysAndStopsNobody) {
    const ConditionReport one = report("S", 100);
    store.save(one);
    const std::string bytes = HistoryStore::encode(one);
    place("cut.json", bytes.substr(0, bytes.size() / 2));
    place("empty.json", "");
    place("other.json", "{\"a\": 1}");
    place("noise.json", std::string(1000, '\xFF'));
    std::filesystem::create_directory(store.folder / "folder.json");
    std::filesystem::create_symlink("loop.json", store.folder / "loop.json");
    std::filesystem::create_symlink("/dev/zero", store.folder / "zero.json");
    ASSERT_EQ(::mkfifo((store.folder / "fifo.json").c_str(), 0600), 0);
    std::filesystem::resize_file(place("sparse.json", ""), std::uintmax_t(5) << 30);
    const auto before = namesIn(store.folder);
    EXPECT_THAT(store.list(), ElementsAre(one));
    EXPECT_EQ(namesIn(store.folder), before);
}

TEST_F(HistoryStoreTests, aFileBeyondTheBoundIsNeverWrittenNorRead) {
    ConditionReport large = report("S", 100);
    large.notes.assign(HistoryStore::largestFile, 'x');
    EXPECT_THROW(store.save(large), std::system_error);
    EXPECT_THAT(namesIn(store.folder), IsEmpty());
    const auto file = folder.write("large.json", HistoryStore::encode(large));
    EXPECT_THROW(store.importFile(file), std::system_error);
    large.notes.assign(HistoryStore::largestFile - (64 << 10), 'x');
    store.save(large);
    EXPECT_THAT(store.list(), ElementsAre(large));
}

TEST_F(HistoryStoreTests, deletesByTheNameOfTheIdAlone) {
    const ConditionReport saved = report("S", 100), other = report("T", 100);
    store.save(saved);
    place("other.json", HistoryStore::encode(other));
    EXPECT_THROW(store.remove(other.id), std::system_error);
    store.remove(saved.id);
    EXPECT_THROW(store.remove(saved.id), std::system_error);
    EXPECT_THAT(store.list(), ElementsAre(other));
    std::filesystem::create_directory(store.folder / (saved.id.text() + ".json"));
    EXPECT_THROW(store.remove(saved.id), std::system_error);
}

TEST_F(HistoryStoreTests, importWritesTheFileAnewAndLeavesThePickedOneAlone) {
    const ConditionReport saved = report("S", 100);
    std::string foreign = HistoryStore::encode(saved);
    foreign.insert(1, "\t\"future\": [1e400],");
    foreign.insert(0, "\xEF\xBB\xBF");
    const auto file = folder.write("picked.txt", foreign);
    EXPECT_EQ(store.importFile(file), saved);
    EXPECT_EQ(bytesOf(file), foreign);
    const auto written = store.folder / (saved.id.text() + ".json");
    EXPECT_EQ(bytesOf(written), HistoryStore::encode(saved));
    // Carried on to another folder, and twice, it is the same value.
    const HistoryStore other{folder / "Other"};
    for (int time = 0; time < 2; ++time)
        EXPECT_EQ(other.importFile(written), saved);
    EXPECT_THAT(other.list(), ElementsAre(saved));

    EXPECT_THROW(store.importFile(folder.write("no.json", "{}")), DecodingError);
    EXPECT_THROW(store.importFile(folder / "missing.json"), std::system_error);
    EXPECT_THROW(store.importFile(folder.path()), std::system_error);
    EXPECT_EQ(store.list().size(), 1u);
}

TEST(HistoryGroups, runByTheNewestReportOfEachMachine) {
    ConditionReport a = report("S", 3), b = report("T", 4), c = report("S", 5), d = report("x", 1), e = d;
    d.machine.serial.reset();
    d.machine.modelID = "Mac14,2";
    e.machine.serial = "Mac14,2"; // shares the key of a Mac without a serial
    e.created = Date{std::nan("")};
    std::vector<std::pair<std::string, std::vector<Uuid>>> groups;
    for (const auto& group : HistoryStore::grouped({e, a, b, c, d}))
        groups.emplace_back(group.key, ids(group.reports));
    EXPECT_THAT(groups,
                ElementsAre(std::pair("S", std::vector{c.id, a.id}), std::pair("T", std::vector{b.id}),
                            std::pair("Mac14,2", std::vector{d.id, e.id})));
    EXPECT_THAT(HistoryStore::grouped({}), IsEmpty());
}

} // namespace
} // namespace tessivo
