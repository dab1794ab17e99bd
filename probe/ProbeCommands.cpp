#include "probe/ProbeCommands.h"

#include "app/document/ReportPrinting.h"
#include "app/readers/MachineCapture.h"
#include "app/readers/Readers.h"
#include "kit/listing/Lang.h"
#include "kit/listing/WordingGuard.h"
#include "kit/report/HistoryStore.h"
#include "kit/report/ReportAssembler.h"
#include "kit/report/ReportText.h"
#include "kit/support/JsonWriter.h"
#include "kit/support/Text.h"
#include "platform/CapturedFacts.h"
#include "platform/qt/QtScheduler.h"
#include "platform/simulated/MachineFile.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "probe/Arguments.h"
#include "probe/CompareCommand.h"
#include "probe/ProbeInput.h"
#include "probe/ProbeOutput.h"

#include <cstdlib>
#include <future>
#include <iostream>

namespace tessivo::ProbeCommands {

namespace {

using ProbeOutput::Content;

constexpr const char* usage =
    "usage: tessivo-probe machine [--root FOLDER]\n"
    "       tessivo-probe report [--machine FILE] [--session FILE] [--notes TEXT] [--at ISO8601]\n"
    "                            [--time-zone ZONE] [--serial]\n"
    "                            --as text|json|pdf|session|listing-en|listing-es [--output FILE]\n"
    "       tessivo-probe guard --report FILE --language en|es [--serial] --draft FILE\n"
    "       tessivo-probe history FOLDER\n"
    "       tessivo-probe compare BEFORE AFTER [--as text|json]\n";

// No file of this program comes near.
constexpr std::uintmax_t largestInput = HistoryStore::largestFile;

template <class Decode>
auto decoded(const std::string& file, Decode decode, std::uintmax_t largest = largestInput) {
    return ProbeInput::decoded(file, decode, largest);
}

struct Report {
    SessionState state;
    ConditionReport report;
    std::string timeZone; ///< empty: the system's
    bool includeSerial = false;
};

std::string listing(const Report& made, const char* language) {
    return Lang::with(language, [&] { return ListingTemplate::make(made.report, made.includeSerial).text; });
}

struct Format {
    Content content;
    std::string (*render)(const Report&);
};

const Format& format(const std::string& name) {
    static const std::map<std::string, Format> formats = {
        {"text", {Content::text, [](const Report& r) { return ReportText::text(r.report, r.timeZone); }}},
        {"json", {Content::text, [](const Report& r) { return HistoryStore::encode(r.report); }}},
        {"pdf",
         {Content::binary,
          [](const Report& r) {
              const QPageSize paper = ReportPrinting::defaultPaper(makePlatform()->desktop().paper());
              return ReportPrinting::pdf(r.report, paper, r.timeZone);
          }}},
        {"session", {Content::text, [](const Report& r) { return r.state.encode(); }}},
        {"listing-en", {Content::text, [](const Report& r) { return listing(r, "en"); }}},
        {"listing-es", {Content::text, [](const Report& r) { return listing(r, "es"); }}},
    };
    const auto entry = formats.find(name);
    if (entry == formats.end()) throw UsageError("unknown form " + name);
    return entry->second;
}

std::unique_ptr<Platform> platform(const std::optional<std::string>& machineFile, Scheduler& scheduler) {
    if (!machineFile) return makePlatform();
    SimulatedPlatform::Storage nowhere;
    nowhere.applicationSupport.emplace();
    return std::make_unique<SimulatedPlatform>(
        decoded(*machineFile, &MachineFile::decode, MachineFile::largestFile), scheduler, nowhere);
}

SessionState newSession(Platform& platform, Date at) {
    SessionState state(readMachineInfo(platform.machineFacts(), platform.registry()), at);
    state.battery = readBattery(platform.registry(), platform.powerSources());
    state.enrollment = std::async(std::launch::async, [&] {
                           return readEnrollmentStatus(platform.systemTools(), StopToken());
                       }).get();
    state.enrollmentChecked = true;
    return state;
}

SessionState session(const std::optional<std::string>& sessionFile,
                     const std::optional<std::string>& machineFile, Date at) {
    QtScheduler scheduler;
    if (!sessionFile) return newSession(*platform(machineFile, scheduler), at);
    SessionState state = decoded(*sessionFile, &SessionState::decode);
    if (machineFile) {
        const auto machine = platform(machineFile, scheduler);
        state.machine = readMachineInfo(machine->machineFacts(), machine->registry());
    }
    return state;
}

/// What a captured tree holds of sound and cameras, in a file of its own; never this computer's.
void addRecordedSound(MachineFile& machine, const std::filesystem::path& root) {
    const auto file = root / "tessivo" / "sound.json";
    std::error_code error;
    if (!std::filesystem::exists(file, error)) return;
    if (std::filesystem::canonical(file) != std::filesystem::canonical(root) / "tessivo" / "sound.json")
        throw std::runtime_error(file.string() + ": a link in a captured tree");
    MachineFile sound = decoded(file.string(), &MachineFile::decode, MachineFile::largestFile);
    machine.audio = std::move(sound.audio);
    machine.microphones = std::move(sound.microphones);
    machine.cameras = std::move(sound.cameras);
    machine.access = std::move(sound.access);
}

MachineFile capturedTree(const std::filesystem::path& root, std::shared_ptr<SourceRecord> record) {
    const auto tree = CapturedFacts::read(root, std::move(record));
    MachineFile file = captureFacts(*tree.machineFacts, *tree.registry, *tree.powerSources);
    addRecordedSound(file, root);
    return file;
}

void machine(const Arguments& arguments) {
    arguments.words(0);
    const auto record = std::make_shared<SourceRecord>();
    const auto root = arguments.value("--root");
    MachineFile file = root ? capturedTree(*root, record) : captureMachine(*makePlatform(record));
    file.sources = record->sources();
    if (record->leftOut() > 0) file.sourcesLeftOut = record->leftOut();
    ProbeOutput::write(file.encode(), Content::text, std::nullopt);
}

void report(const Arguments& arguments) {
    arguments.words(0);
    const std::string formatName = arguments.need("--as");
    const Format& form = format(formatName);
    Report made;
    made.includeSerial = arguments.has("--serial");
    if (const auto zone = arguments.value("--time-zone")) {
        if (!isTimeZone(*zone)) throw UsageError("unknown time zone " + *zone);
        made.timeZone = *zone;
        // A listing takes its date in the system's zone.
        ::setenv("TZ", zone->c_str(), 1);
        ::tzset();
    }
    Date at = Date::now();
    if (const auto text = arguments.value("--at")) {
        const auto given = Date::fromISO8601(*text);
        if (!given) throw UsageError("no ISO 8601 date: " + *text);
        at = *given;
    }
    made.state = session(arguments.value("--session"), arguments.value("--machine"), at);
    made.report = ReportAssembler::make(made.state, at, TESSIVO_VERSION,
                                        Text::repaired(arguments.value("--notes").value_or("")));
    ProbeOutput::write(form.render(made), form.content, arguments.value("--output"));
}

void guard(const Arguments& arguments) {
    arguments.words(0);
    const std::string language = arguments.need("--language");
    if (language != "en" && language != "es") throw UsageError("unknown language " + language);
    const std::string reportFile = arguments.need("--report");
    const std::string draftFile = arguments.need("--draft");
    const ConditionReport report = decoded(reportFile, &HistoryStore::decode);
    const std::string draft = Text::repaired(ProbeInput::read(draftFile, largestInput));

    Json::Writer writer(Json::Layout::prettySorted, Json::DateForm::iso8601);
    writer.open('[');
    Lang::with(language, [&] {
        const auto writeUp = ListingTemplate::make(report, arguments.has("--serial"));
        for (const GuardIssue& issue : WordingGuard::check(draft, writeUp)) {
            const bool hasPayload =
                issue.kind != GuardIssue::Case::empty && issue.kind != GuardIssue::Case::tooLong;
            writer.separate();
            writer.open('[');
            writer.separate();
            writer.write(issue.kind);
            writer.separate();
            hasPayload ? writer.write(issue.payload) : writer.writeNull();
            writer.close(']');
        }
    });
    writer.close(']');
    ProbeOutput::write(writer.take(), Content::text, std::nullopt);
}

void history(const Arguments& arguments) {
    const std::string folder = arguments.words(1).front();
    // The store passes over what it can't read; a folder that isn't there is a fault here.
    std::error_code error;
    std::filesystem::directory_iterator(folder, error);
    if (error) throw std::runtime_error(folder + ": " + error.message());

    Json::Writer writer(Json::Layout::prettySorted, Json::DateForm::iso8601);
    writer.open('[');
    for (const HistoryStore::Group& group : HistoryStore::grouped(HistoryStore{folder}.list())) {
        std::vector<Uuid> ids;
        for (const ConditionReport& report : group.reports)
            ids.push_back(report.id);
        writer.separate();
        writer.open('{');
        writer.writeKey("key");
        writer.write(group.key);
        writer.writeKey("reports");
        writer.write(ids);
        writer.close('}');
    }
    writer.close(']');
    ProbeOutput::write(writer.take(), Content::text, std::nullopt);
}

void runCommand(const std::vector<std::string>& words) {
    if (words.empty()) throw UsageError("a command is missing");
    const std::vector<std::string> rest(words.begin() + 1, words.end());
    const std::string& command = words.front();
    if (command == "machine") return machine(Arguments(rest, {"--root"}, {}));
    if (command == "report")
        return report(
            Arguments(rest, {"--machine", "--session", "--notes", "--at", "--time-zone", "--as", "--output"},
                      {"--serial"}));
    if (command == "guard")
        return guard(Arguments(rest, {"--report", "--language", "--draft"}, {"--serial"}));
    if (command == "history") return history(Arguments(rest, {}, {}));
    if (command == "--help") return ProbeOutput::write(usage, Content::text, std::nullopt);
    throw UsageError("unknown command " + command);
}

void tell(const char* what) {
    std::cerr << "tessivo-probe: " << Text::singleLine(Text::repaired(what)) << '\n';
}

} // namespace

int run(const std::vector<std::string>& arguments) {
    try {
        // The one command whose answer is its status too.
        if (!arguments.empty() && arguments.front() == "compare")
            return CompareCommand::run({arguments.begin() + 1, arguments.end()});
        runCommand(arguments);
        return 0;
    } catch (const UsageError& error) {
        tell(error.what());
        std::cerr << usage;
        return 2;
    } catch (const std::exception& error) {
        tell(error.what());
        return 1;
    }
}

} // namespace tessivo::ProbeCommands
