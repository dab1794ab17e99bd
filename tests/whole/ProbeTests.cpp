#include "kit/Samples.h"
#include "kit/report/HistoryStore.h"
#include "kit/report/ReportAssembler.h"
#include "kit/support/PropertyJson.h"
#include "tests/platform/linux/CapturedTree.h"

#include <QProcess>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

struct Outcome {
    int status = -1;
    std::string out;
    std::string err;
};

Outcome run(const QString& program, const QStringList& arguments, const QString& output = {}) {
    QProcess process;
    if (!output.isEmpty()) process.setStandardOutputFile(output);
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit) return {};
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

Outcome probe(const QStringList& arguments, const QString& output = {}) {
    return run(TESSIVO_BUILD "/tessivo-probe", arguments, output);
}

QString q(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

const QStringList fixedDate = {"--at", "2026-03-05T16:07:09Z", "--time-zone", "UTC"};

ConditionReport sampleReport() {
    return ReportAssembler::make(Samples::session(), *Date::fromISO8601("2026-03-05T16:07:09Z"), "1.0",
                                 Samples::notes());
}

TEST(Probe, aCapturedMachineGivesTheReportOfThisComputer) {
    const TemporaryFolder folder;
    const Outcome machine = probe({"machine"});
    ASSERT_EQ(machine.status, 0) << machine.err;
    const auto file = folder.write("m.json", machine.out);
    const Outcome here = probe(QStringList{"report", "--as", "text"} + fixedDate);
    const Outcome replayed = probe(QStringList{"report", "--machine", q(file), "--as", "text"} + fixedDate);
    EXPECT_EQ(here.status + replayed.status, 0);
    EXPECT_EQ(here.err + replayed.err, "");
    EXPECT_EQ(replayed.out, here.out);
    EXPECT_THAT(here.out,
                AllOf(StartsWith("CONDITION REPORT: "), HasSubstr(" on March 5, 2026 at 4:07 PM UTC\n"),
                      HasSubstr("\nMemory: "), Not(HasSubstr("\nMemory: 0 GB")),
                      EndsWith("Anyone can rerun the tests to compare.\n")));
}

TEST(Probe, aCapturedTreeTellsOfItselfAndNeverOfThisComputer) {
    CapturedTree tree("laptop-two-batteries");
    const auto captured = [&] {
        const Outcome machine = probe({"machine", "--root", q(tree.path())});
        EXPECT_EQ(machine.status, 0) << machine.err;
        return parsePropertyMap(machine.out);
    };
    PropertyMap map = captured();
    for (const char* key : {"audio", "microphones", "cameras", "access", "tools"})
        EXPECT_FALSE(map.contains(key)) << key;
    const auto source = [&](const char* path) {
        const auto& sources = std::get<PropertyMap>(map.at("sources").value);
        return sources.contains(path) ? std::get<PropertyMap>(sources.at(path).value) : PropertyMap();
    };
    EXPECT_EQ(source("sys/class/dmi/id/product_name"), (PropertyMap{{"text", "20L5CTO1WW\n"}}));
    EXPECT_EQ(source("sys/class/dmi/id/product_serial"), (PropertyMap{{"fault", "Is a directory"}}));
    EXPECT_EQ(source("sys/firmware/devicetree/base/serial-number"),
              (PropertyMap{{"fault", "No such file or directory"}}));

    tree.add("tessivo/sound.json = {\"audio\": {\"devices\": []}, \"microphones\": [], \"sysctl\": {}}");
    tree.add("proc/cpuinfo | model name: Chip\\x0a" + std::string(700'000, 'x'));
    map = captured();
    EXPECT_EQ(map.at("audio"), Property(PropertyMap{{"devices", PropertyList()}}));
    EXPECT_EQ(map.at("microphones"), Property(PropertyList()));
    EXPECT_NE(map.at("sysctl"), Property(PropertyMap())) << "facts of files come from files";
    EXPECT_EQ(integer(source("proc/cpuinfo"), "bytes"), 700'017);
    EXPECT_EQ(text(source("proc/cpuinfo"), "text").value_or("").size(), 16384u);

    // This computer's own, by a link that leads out of the tree.
    tree.remove("proc/sys/kernel/osrelease");
    tree.add("proc/sys/kernel/osrelease -> /proc/sys/kernel/osrelease");
    map = captured();
    EXPECT_FALSE(std::get<PropertyMap>(map.at("sysctl").value).contains("kern.osversion"));
    EXPECT_EQ(source("proc/sys/kernel/osrelease"),
              (PropertyMap{{"fault", "A link leads out of the captured tree"}}));

    tree.add("tessivo/sound.json = {\"audio\": 1}");
    const Outcome broken = probe({"machine", "--root", q(tree.path())});
    EXPECT_EQ(broken.status, 1);
    EXPECT_THAT(broken.err, HasSubstr("sound.json: audio: "));
    const TemporaryFolder elsewhere;
    tree.remove("tessivo");
    std::filesystem::create_symlink(elsewhere.write("sound.json", "{}").parent_path(), tree.path("tessivo"));
    EXPECT_THAT(probe({"machine", "--root", q(tree.path())}).err, HasSubstr("sound.json: a link"));
}

TEST(Probe, readsStandardInputAndPipes) {
    const TemporaryFolder folder;
    const auto file = folder.write("session.json", Samples::session().encode());
    const std::string expected = probe({"report", "--session", q(file), "--as", "session"}).out;
    for (const char* line : {"cat \"$1\" | \"$0\" report --session - --as session",
                             "\"$0\" report --session - --as session < \"$1\"",
                             "mkfifo \"$1.pipe\"; cat \"$1\" > \"$1.pipe\" & "
                             "\"$0\" report --session \"$1.pipe\" --as session"})
        EXPECT_EQ(run("sh", {"-c", line, TESSIVO_BUILD "/tessivo-probe", q(file)}).out, expected) << line;
    const Outcome nothing =
        run("sh", {"-c", "\"$0\" report --session - --as text < /dev/null", TESSIVO_BUILD "/tessivo-probe"});
    EXPECT_EQ(nothing.status, 1);
    EXPECT_THAT(nothing.err, HasSubstr("standard input: "));
    const Outcome endless =
        run("sh", {"-c", "\"$0\" report --session - --as text < /dev/zero", TESSIVO_BUILD "/tessivo-probe"});
    EXPECT_THAT(endless.err, HasSubstr("standard input: File too large"));
}

TEST(Probe, aSessionStandsAsItIsAndTakesANewMachine) {
    const TemporaryFolder folder;
    const SessionState session = Samples::session();
    const auto file = folder.write("session.json", session.encode());
    const auto machine = folder.write("m.json", R"({"sysctl": {"hw.model": "Macmini9,1"},
        "operatingSystem": {"major": 15, "minor": 3, "patch": 1}, "physicalMemory": 8589934592})");

    const Outcome same =
        probe({"report", "--session", q(file), "--as", "session", "--output", q(folder / "out")});
    EXPECT_EQ(same.status, 0) << same.err;
    EXPECT_EQ(same.out, "");
    EXPECT_EQ(SessionState::decode(bytesOf(folder / "out")), session);

    const Outcome moved = probe({"report", "--session", q(file), "--machine", q(machine), "--as", "session"});
    SessionState expected = session;
    expected.machine = {"Macmini9,1", std::nullopt, std::nullopt, 8589934592, "macOS 15.3.1", std::nullopt};
    EXPECT_EQ(SessionState::decode(moved.out), expected);
}

TEST(Probe, everyForm) {
    const TemporaryFolder folder;
    const auto file = folder.write("session.json", Samples::session().encode());
    const auto as = [&](const QString& form, const QStringList& more = {}) {
        return probe(
            QStringList{"report", "--session", q(file), "--notes", "Scratch on the lid", "--as", form} +
            fixedDate + more);
    };
    ConditionReport report = HistoryStore::decode(as("json").out);
    ConditionReport expected = sampleReport();
    expected.notes = "Scratch on the lid";
    report.id = expected.id;
    EXPECT_EQ(report, expected);

    const std::string serial = expected.machine.serial.value();
    EXPECT_THAT(as("listing-en").out, HasSubstr("Tested on March 5, 2026 with Tessivo."));
    EXPECT_THAT(as("listing-en").out, Not(HasSubstr(serial)));
    EXPECT_THAT(as("listing-es", {"--serial"}).out,
                AllOf(HasSubstr("5 de marzo de 2026"), HasSubstr(serial)));
    // The listing's date is the zone's: it is still the fifth in Los Angeles.
    EXPECT_THAT(probe({"report", "--session", q(file), "--at", "2026-03-06T05:00:00Z", "--time-zone",
                       "America/Los_Angeles", "--as", "listing-en"})
                    .out,
                HasSubstr("Tested on March 5, 2026"));
    EXPECT_EQ(as("pdf", {"--output", q(folder / "report.pdf")}).status, 0);
    EXPECT_THAT(bytesOf(folder / "report.pdf"), StartsWith("%PDF-"));
}

TEST(Probe, guardAndHistory) {
    const TemporaryFolder folder;
    const HistoryStore store{folder / "History"};
    const ConditionReport report = sampleReport();
    store.save(report);
    std::ofstream(store.folder / "broken.json") << "{";
    const auto key = report.machine.serial.value_or(report.machine.modelID);
    const Outcome history = probe({"history", q(store.folder)});
    const PropertyMap listed = parsePropertyMap("{\"groups\": " + history.out + "}");
    const PropertyList groups{PropertyMap{{"key", key}, {"reports", PropertyList{report.id.text()}}}};
    EXPECT_EQ(listed, (PropertyMap{{"groups", groups}}));

    const auto file = folder.write("report.json", HistoryStore::encode(report));
    const auto guard = [&](const std::string& draft, const QString& language) {
        return probe({"guard", "--report", q(file), "--language", language, "--draft",
                      q(folder.write("draft.txt", draft))});
    };
    const auto listing = probe({"report", "--session", q(folder.write("s.json", Samples::session().encode())),
                                "--notes", QString::fromStdString(Samples::notes()), "--as", "listing-es",
                                "--at", "2026-03-05T16:07:09Z"});
    EXPECT_EQ(parsePropertyMap("{\"issues\": " + guard(listing.out, "es").out + "}"),
              (PropertyMap{{"issues", PropertyList()}}));
    EXPECT_EQ(parsePropertyMap("{\"issues\": " + guard(" ", "en").out + "}"),
              (PropertyMap{{"issues", PropertyList{Property(PropertyList{"empty", Property()})}}}));
}

TEST(Probe, comparesTwoReportsAndSaysByItsStatusWhetherAllWorks) {
    const TemporaryFolder folder;
    ConditionReport seller = sampleReport(), buyer = seller;
    buyer.created.seconds += 86'400;
    buyer.results[8].details.front() = "MacBook Air Microphone: loudest -9 dB";
    const auto before = folder.write("before.json", HistoryStore::encode(seller));
    const auto after = folder.write("after.json", HistoryStore::encode(buyer));
    const Outcome good = probe({"compare", q(before), q(after)});
    EXPECT_EQ(good.status, 0) << good.err;
    EXPECT_THAT(good.out, AllOf(StartsWith("TWO REPORTS COMPARED\n"),
                                HasSubstr("\nSame Mac, and all 12 tests that worked then work now.\n")));
    EXPECT_EQ(probe({"compare", q(before), q(before)}).status, 3) << "nothing was tested since";
    buyer.results[3].status = TestStatus::problem;
    const auto worse = folder.write("worse.json", HistoryStore::encode(buyer));
    const Outcome bad = probe({"compare", "--as", "json", q(worse), q(before)});
    EXPECT_EQ(bad.status, 3);
    EXPECT_EQ(text(parsePropertyMap(bad.out), "verdictText"), "1 thing is worse than the report says.");
}

TEST(Probe, aFaultIsOneLineThatNamesTheFile) {
    const TemporaryFolder folder;
    const QString missing = q(folder / "missing.json");
    const QString broken = q(folder.write("broken.json", "{\"machine\": {"));
    const QString deep = q(folder.write("deep.json", std::string(100000, '[')));
    const QString report = q(folder.write("report.json", HistoryStore::encode(sampleReport())));
    const QString folderItself = q(folder.path());
    const QStringList rows[] = {
        {missing, "report", "--as", "text", "--machine", missing},
        {broken, "report", "--as", "text", "--machine", broken},
        {folderItself, "report", "--as", "text", "--machine", folderItself},
        {missing, "report", "--as", "text", "--session", missing},
        {broken, "report", "--as", "text", "--session", broken},
        {deep, "report", "--as", "text", "--session", deep},
        {report, "report", "--as", "text", "--session", report},
        {deep, "guard", "--report", deep, "--language", "en", "--draft", report},
        {missing, "guard", "--report", report, "--language", "en", "--draft", missing},
        {missing, "history", missing},
        {missing, "machine", "--root", missing},
        {report, "machine", "--root", report},
        {missing, "compare", report, missing},
        {broken, "compare", broken, report},
        {report, "history", report},
        {report + "/x", "report", "--as", "text", "--output", report + "/x"},
        {"/dev/full", "report", "--as", "text", "--output", "/dev/full"},
    };
    for (const QStringList& row : rows) {
        const Outcome run = probe(row.mid(1));
        SCOPED_TRACE(row.join(' ').toStdString());
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(row.front().toStdString()));
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
        EXPECT_THAT(run.err, EndsWith("\n"));
    }
    const Outcome full = probe({"report", "--as", "json"}, "/dev/full");
    EXPECT_EQ(full.status, 1);
    EXPECT_THAT(full.err, HasSubstr("standard output"));
}

TEST(Probe, noPDFIsMadeOfBoxes) {
    const TemporaryFolder folder;
    const auto noFonts = folder.write("fonts.conf", "<fontconfig></fontconfig>");
    const Outcome outcome = run("env", {"FONTCONFIG_FILE=" + q(noFonts), TESSIVO_BUILD "/tessivo-probe",
                                        "report", "--as", "pdf", "--output", q(folder / "report.pdf")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, EndsWith("there is no font to set the report in\n"));
    EXPECT_FALSE(std::filesystem::exists(folder / "report.pdf"));
}

TEST(Probe, wrongUsage) {
    for (const char* line : {"", "reprot", "machine more", "report", "report --as", "report --as html",
                             "report --as text --as text", "report --as text --at yesterday",
                             "report --as text --time-zone Mars/Base", "report --as text --loud",
                             "guard --report x --draft x", "guard --report x --language fr --draft x",
                             "history", "history a b", "compare a", "compare a b c", "compare a b --as pdf"})
        EXPECT_EQ(probe(QString(line).split(' ', Qt::SkipEmptyParts)).status, 2) << line;
}

TEST(Probe, anOutputFileIsReplacedWholeOrLeft) {
    const TemporaryFolder folder;
    const auto file = folder.write("report.txt", "before");
    std::filesystem::create_symlink(file, folder / "link");
    EXPECT_EQ(probe({"report", "--as", "json", "--session", q(folder / "none"), "--output", q(file)}).status,
              1);
    const Outcome limited = run("sh", {"-c", "ulimit -f 1; exec \"$0\" report --as text --output \"$1\"",
                                       TESSIVO_BUILD "/tessivo-probe", q(file)});
    EXPECT_EQ(limited.status, 1);
    EXPECT_THAT(limited.err, HasSubstr("report.txt: File too large\n"));
    EXPECT_EQ(bytesOf(file), "before");
    EXPECT_EQ(probe({"report", "--as", "text", "--output", q(folder / "link")}).status, 0);
    EXPECT_THAT(bytesOf(file), EndsWith("to compare."));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
    EXPECT_EQ(namesIn(folder.path()), (std::vector<std::string>{"link", "report.txt"}));
}

} // namespace
} // namespace tessivo
