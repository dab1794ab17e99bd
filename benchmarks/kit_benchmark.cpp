// What the kit costs: results, reports, files and the guard, with the peers that they are measured against.
#include "kit/Samples.h"
#include "kit/listing/Lang.h"
#include "kit/listing/WordingGuard.h"
#include "kit/report/HistoryStore.h"
#include "kit/report/ReportAssembler.h"
#include "kit/report/ReportText.h"
#include "kit/rules/Rules.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <fstream>
#include <nlohmann/json.hpp>
#include <simdjson.h>
#include <stdlib.h>
#include <unistd.h>

namespace {

using namespace tessivo;

ConditionReport sampleReport() {
    return ReportAssembler::make(Samples::session(), Date{794419629}, "1.0", Samples::notes());
}

/// A report of about the size that most are, in bytes of its file.
ConditionReport reportOfSize(std::size_t size) {
    ConditionReport report = sampleReport();
    const std::size_t now = HistoryStore::encode(report).size();
    if (now < size) report.notes.append(size - now, 'x');
    return report;
}

void results(benchmark::State& state) {
    const SessionState session = Samples::session();
    for (auto _ : state)
        benchmark::DoNotOptimize(Rules::results(session));
}
BENCHMARK(results)->Unit(benchmark::kMicrosecond);

void makeReport(benchmark::State& state) {
    const SessionState session = Samples::session();
    const std::string notes = Samples::notes();
    for (auto _ : state)
        benchmark::DoNotOptimize(ReportAssembler::make(session, Date{794419629}, "1.0", notes));
}
BENCHMARK(makeReport)->Unit(benchmark::kMicrosecond);

void sessionEncode(benchmark::State& state) {
    const SessionState session = Samples::session();
    for (auto _ : state)
        benchmark::DoNotOptimize(session.encode());
    state.SetBytesProcessed(state.iterations() * std::int64_t(session.encode().size()));
}
BENCHMARK(sessionEncode)->Unit(benchmark::kMicrosecond);

void sessionDecode(benchmark::State& state) {
    const std::string text = Samples::session().encode();
    for (auto _ : state)
        benchmark::DoNotOptimize(SessionState::decode(text));
    state.SetBytesProcessed(state.iterations() * std::int64_t(text.size()));
}
BENCHMARK(sessionDecode)->Unit(benchmark::kMicrosecond);

void reportText(benchmark::State& state) {
    const ConditionReport report = sampleReport();
    for (auto _ : state)
        benchmark::DoNotOptimize(ReportText::text(report, "America/Los_Angeles"));
}
BENCHMARK(reportText)->Unit(benchmark::kMicrosecond);

void reportEncode(benchmark::State& state) {
    const ConditionReport report = reportOfSize(7'000);
    const std::size_t size = HistoryStore::encode(report).size();
    for (auto _ : state)
        benchmark::DoNotOptimize(HistoryStore::encode(report));
    state.SetBytesProcessed(state.iterations() * std::int64_t(size));
}
BENCHMARK(reportEncode)->Unit(benchmark::kMicrosecond);

void reportDecode(benchmark::State& state) {
    const std::string text = HistoryStore::encode(reportOfSize(7'000));
    for (auto _ : state)
        benchmark::DoNotOptimize(HistoryStore::decode(text));
    state.SetBytesProcessed(state.iterations() * std::int64_t(text.size()));
}
BENCHMARK(reportDecode)->Unit(benchmark::kMicrosecond);

/// The floors of decoding: the parser comes to every value and reads none; the value is copied.
void pass(simdjson::ondemand::value value) {
    switch (value.type()) {
    case simdjson::ondemand::json_type::object:
        for (auto field : value.get_object()) {
            benchmark::DoNotOptimize(field.key().value());
            pass(field.value());
        }
        break;
    case simdjson::ondemand::json_type::array:
        for (auto entry : value.get_array())
            pass(entry.value());
        break;
    default:
        benchmark::DoNotOptimize(value.raw_json_token());
    }
}

void timePass(benchmark::State& state, const std::string& text) {
    const simdjson::padded_string bytes(text);
    simdjson::ondemand::parser parser;
    for (auto _ : state) {
        auto document = parser.iterate(bytes);
        pass(document.get_value().value());
    }
}
template <class Value>
void timeCopy(benchmark::State& state, const Value& value) {
    for (auto _ : state) {
        Value copy = value;
        benchmark::DoNotOptimize(copy);
    }
}
void sessionPass(benchmark::State& state) {
    timePass(state, Samples::session().encode());
}
BENCHMARK(sessionPass)->Unit(benchmark::kMicrosecond);
void sessionCopy(benchmark::State& state) {
    timeCopy(state, Samples::session());
}
BENCHMARK(sessionCopy)->Unit(benchmark::kMicrosecond);
void reportPass(benchmark::State& state) {
    timePass(state, HistoryStore::encode(reportOfSize(7'000)));
}
BENCHMARK(reportPass)->Unit(benchmark::kMicrosecond);
void reportCopy(benchmark::State& state) {
    timeCopy(state, reportOfSize(7'000));
}
BENCHMARK(reportCopy)->Unit(benchmark::kMicrosecond);

/// The peer writes its own tree, without the records: less work than ours.
void peerEncode(benchmark::State& state) {
    const std::string text = HistoryStore::encode(reportOfSize(7'000));
    const auto tree = nlohmann::json::parse(text);
    for (auto _ : state)
        benchmark::DoNotOptimize(tree.dump(2));
    state.SetBytesProcessed(state.iterations() * std::int64_t(text.size()));
}
BENCHMARK(peerEncode)->Unit(benchmark::kMicrosecond);

/// The peer reads into its own tree, without the records: less work than ours.
void peerDecode(benchmark::State& state) {
    const std::string text = HistoryStore::encode(reportOfSize(7'000));
    for (auto _ : state)
        benchmark::DoNotOptimize(nlohmann::json::parse(text));
    state.SetBytesProcessed(state.iterations() * std::int64_t(text.size()));
}
BENCHMARK(peerDecode)->Unit(benchmark::kMicrosecond);

/// A History of 10,000 reports of 5 to 8 KB, made once.
const HistoryStore& largeHistory() {
    struct Folder {
        std::filesystem::path path = [] {
            std::string name = (std::filesystem::temp_directory_path() / "tessivo-benchmark-XXXXXX").string();
            if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
            return name;
        }();
        HistoryStore store{path};
        ~Folder() { std::filesystem::remove_all(path); }
    };
    static const Folder folder;
    if (std::filesystem::is_empty(folder.path)) {
        for (int i = 0; i < 10'000; ++i) {
            ConditionReport report = reportOfSize(5'000 + std::size_t(i % 4) * 1'000);
            report.created = Date{double(i)};
            // Written plainly: the sync of each save would take minutes and isn't what is measured.
            std::ofstream(folder.path / (report.id.text() + ".json")) << HistoryStore::encode(report);
        }
    }
    return folder.store;
}

void historyList(benchmark::State& state) {
    const HistoryStore& store = largeHistory();
    for (auto _ : state) {
        if (store.list().size() != 10'000) state.SkipWithError("a report is missing");
    }
}
BENCHMARK(historyList)->Unit(benchmark::kMillisecond);

/// The floor: the same files opened, read and closed, and nothing made of them.
void historyReadOnly(benchmark::State& state) {
    const HistoryStore& store = largeHistory();
    std::vector<char> buffer(64 << 10);
    for (auto _ : state) {
        for (const auto& entry : std::filesystem::directory_iterator(store.folder)) {
            const int file = ::open(entry.path().c_str(), O_RDONLY | O_CLOEXEC);
            while (::read(file, buffer.data(), buffer.size()) > 0)
                ;
            ::close(file);
        }
    }
}
BENCHMARK(historyReadOnly)->Unit(benchmark::kMillisecond);

void guardCheck(benchmark::State& state) {
    const auto writeUp = Lang::with("en", [] { return ListingTemplate::make(reportOfSize(7'000), true); });
    std::string text = writeUp.text;
    while (text.size() < 4'096)
        text += "\nEverything was tested on the machine itself, one page after the other.";
    for (auto _ : state)
        benchmark::DoNotOptimize(WordingGuard::check(text, writeUp));
    state.SetBytesProcessed(state.iterations() * std::int64_t(text.size()));
}
BENCHMARK(guardCheck)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
