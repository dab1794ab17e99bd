#include "app/readers/Readers.h"
#include "kit/Samples.h"
#include "kit/listing/Lang.h"
#include "kit/listing/ListingTemplate.h"
#include "kit/report/ReportAssembler.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "tests/TemporaryFolder.h"
#include "tests/platform/linux/CapturedTree.h"

#include <QProcess>
#include <gtest/gtest.h>

using namespace tessivo;

namespace {

namespace fs = std::filesystem;

constexpr const char* moment = "2026-03-05T16:07:09Z";

std::vector<std::string> stems(const fs::path& folder, const std::string& extension) {
    std::vector<std::string> names;
    for (const fs::path name : namesIn(folder))
        if (name.extension() == extension) names.push_back(name.stem().string());
    return names;
}

std::string printed(const auto& info) {
    std::string name = info.param;
    std::ranges::replace(name, '-', '_');
    return name;
}

fs::path machineFile(const std::string& name) {
    return fs::path(TESSIVO_MACHINES) / (name + ".json");
}

/// Compares with the file of that name in tests/data. What differs is left in the build folder under the
/// same name, to be read line by line before it takes the place of the old one.
void expectGolden(const fs::path& name, const std::string& actual) {
    const fs::path golden = fs::path(TESSIVO_TEST_DATA) / name;
    const std::string expected = bytesOf(golden);
    EXPECT_FALSE(expected.empty()) << golden << " is missing";
    EXPECT_EQ(actual, expected) << golden;
    if (actual == expected) return;
    const fs::path left = fs::path(TESSIVO_BUILD) / "golden" / name;
    fs::create_directories(left.parent_path());
    std::ofstream(left, std::ios::binary) << actual;
}

std::string probe(QStringList arguments, const std::string& input = {}) {
    QProcess probe;
    probe.start(TESSIVO_BUILD "/tessivo-probe", arguments);
    probe.write(QByteArray::fromStdString(input));
    probe.closeWriteChannel();
    EXPECT_TRUE(probe.waitForFinished()) << probe.errorString().toStdString();
    EXPECT_EQ(probe.exitCode(), 0) << probe.readAllStandardError().toStdString();
    return probe.readAllStandardOutput().toStdString();
}

/// The report of a machine file, or of standard input for "-".
std::string textReport(const fs::path& machine, const std::string& input = {}) {
    return probe({"report", "--machine", QString::fromStdString(machine.string()), "--as", "text", "--at",
                  moment, "--time-zone", "UTC"},
                 input);
}

class GoldenReports : public testing::TestWithParam<std::string> {};

TEST_P(GoldenReports, aFreshReportOfTheMachineReadsAsItsGoldenFile) {
    expectGolden("reports/" + GetParam() + ".txt", textReport(machineFile(GetParam())));
}

TEST_P(GoldenReports, theListingOfASaleOfItReadsAsItsGoldenFiles) {
    ManualScheduler clock;
    SimulatedPlatform mac(loadMachineFile(machineFile(GetParam())), clock);
    SessionState state = Samples::session(readMachineInfo(mac.machineFacts(), mac.registry()));
    state.battery = readBattery(mac.registry(), mac.powerSources());
    state.enrollment = readEnrollmentStatus(mac.systemTools(), {});
    const auto report =
        ReportAssembler::make(state, *Date::fromISO8601(moment), TESSIVO_VERSION, Samples::notes());
    for (const char* language : {"en", "es"}) {
        const auto writeUp =
            Lang::with(language, [&] { return ListingTemplate::make(report, /*includeSerial=*/true); });
        EXPECT_EQ(writeUp.language, language);
        expectGolden("listings/" + GetParam() + "-" + language + ".txt", writeUp.text + "\n");
    }
}

class GoldenTrees : public testing::TestWithParam<std::string> {};

TEST_P(GoldenTrees, aCaptureOfTheTreeReportsAsItsGoldenFile) {
    const CapturedTree tree(GetParam());
    const std::string capture = probe({"machine", "--root", QString::fromStdString(tree.path().string())});
    // Recorded with the tree, or nowhere; never this computer's.
    const bool isRecorded = fs::exists(tree.path("tessivo/sound.json"));
    for (const char* key : {"audio", "microphones", "cameras"})
        EXPECT_EQ(capture.find("\n  \"" + std::string(key) + "\"") != std::string::npos, isRecorded) << key;
    expectGolden("reports/trees/" + GetParam() + ".txt", textReport("-", capture));
}

INSTANTIATE_TEST_SUITE_P(Machines, GoldenReports, testing::ValuesIn(stems(TESSIVO_MACHINES, ".json")),
                         [](const auto& info) { return printed(info); });
INSTANTIATE_TEST_SUITE_P(Trees, GoldenTrees,
                         testing::ValuesIn(stems(fs::path(TESSIVO_TEST_DATA) / "trees", ".tree")),
                         [](const auto& info) { return printed(info); });

} // namespace
