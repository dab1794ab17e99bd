// Comparing two reports: the value and its text, and the sheet over a History of 10,000 reports.
#include "app/controls/Picker.h"
#include "app/look/Theme.h"
#include "app/pages/compare/CompareSheet.h"
#include "benchmarks/Bench.h"
#include "kit/Samples.h"
#include "kit/report/ComparisonText.h"
#include "kit/report/ReportAssembler.h"

#include <QApplication>
#include <QLineEdit>
#include <cstdio>
#include <fstream>

namespace {

using namespace tessivo;
using namespace tessivo::bench;

constexpr int reportCount = 10'000;
constexpr Date sold{794'000'000};

ConditionReport desktopReport(Date at) {
    MachineInfo mini = Samples::machine();
    mini.modelID = "Mac16,10";
    return ReportAssembler::make(Samples::session(mini), at, "1.0", Samples::notes());
}

void fill(const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
    SessionState session = Samples::session();
    for (int i = 0; i < reportCount; ++i) {
        // A tenth of them are of one Mac, more than a picker lists.
        session.machine.serial = i % 10 == 0 ? "SERIAL" : "SERIAL" + std::to_string(i / 10);
        const auto report =
            ReportAssembler::make(session, Date{sold.seconds + i * 60}, "1.0", Samples::notes());
        std::ofstream(folder / (report.id.text() + ".json")) << HistoryStore::encode(report);
    }
}

template <class Work>
void measure(const char* what, int rounds, Work work) {
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        const Stopwatch watch;
        work();
        times.push_back(watch.milliseconds());
    }
    const Spread spread(std::move(times));
    std::printf("%-46s median %9.4f ms, 99th percentile %9.4f ms\n", what, spread.median, spread.high);
}

void measureKit() {
    const ConditionReport before = desktopReport(sold);
    ConditionReport after = desktopReport({sold.seconds + 86'400});
    after.results[3].status = TestStatus::problem;
    std::printf("%zu tests\n", before.results.size());
    measure("two reports of 14 tests", 2000, [&] { ReportComparison::make(before, after); });
    const auto comparison = ReportComparison::make(before, after);
    measure("its text", 2000, [&] { ComparisonText::text(comparison, "UTC"); });
    // Nothing but the last detail tells the two apart, so all of them are looked at.
    ConditionReport longBefore = before, longAfter = desktopReport({sold.seconds + 86'400});
    for (int i = 0; i < 100'000; ++i) {
        longBefore.results[10].details.push_back("Port " + std::to_string(i) + ": not tried");
        longAfter.results[10].details.push_back("Port " + std::to_string(i) + ": not tried");
    }
    longAfter.results[10].details.back() = "Port 100000: not tried";
    measure("two reports of 100,000 details", 100, [&] { ReportComparison::make(longBefore, longAfter); });
    ConditionReport hugeBefore = before, hugeAfter = after;
    for (int i = 0; i < 100'000; ++i) {
        hugeBefore.results.push_back({TestID(i % 14), TestStatus::works, "Summary " + std::to_string(i)});
        hugeAfter.results.push_back({TestID(i % 14), TestStatus::works, "Summary " + std::to_string(-i)});
    }
    measure("two reports of 100,000 results", 20, [&] { ReportComparison::make(hugeBefore, hugeAfter); });
}

void measureSheet() {
    const Folder support;
    fill(support.path() / "History");
    Mac mac({.applicationSupport = std::vector{support.path()}});
    AppModel model(mac.platform);
    const auto& history = model.history();
    const auto ofTheMac =
        std::ranges::find(history, std::optional<std::string>("SERIAL"),
                          [](const ConditionReport& report) { return report.machine.serial; });
    QWidget window;
    window.resize(windowSize);
    window.show();
    QApplication::processEvents();

    Stopwatch opening;
    auto* sheet = new CompareSheet({model, mac.dialogs}, *ofTheMac, &window);
    sheet->show();
    QApplication::processEvents();
    std::printf("the sheet opened over %zu reports           %8.1f ms\n", history.size(),
                opening.milliseconds());
    while (model.reading())
        QApplication::processEvents(QEventLoop::AllEvents, 5);
    QApplication::processEvents();
    auto* other = sheet->findChildren<Picker*>().at(1);
    int index = 0;
    measure("another report chosen, shown", 100, [&] {
        other->setCurrentIndex(1 + index++ % (other->count() - 1));
        Q_EMIT other->activated(other->currentIndex());
        QApplication::processEvents();
    });
    auto* field = sheet->findChild<QLineEdit*>();
    const auto type = [&](const QString& words) {
        field->setText(words);
        Q_EMIT field->textEdited(words);
        QApplication::processEvents();
    };
    const Stopwatch first;
    type("serial9");
    std::printf("the first letters of a search                %8.1f ms\n", first.milliseconds());
    measure("further letters", 100, [&] { type("serial9" + QString::number(index++ % 100)); });
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const Theme theme(application);
    measureKit();
    measureSheet();
}
