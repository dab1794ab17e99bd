// Opening History with many reports: time to a usable list, the longest stall of the main thread, memory.
#include "app/look/Theme.h"
#include "app/pages/Pages.h"
#include "benchmarks/Bench.h"
#include "kit/Samples.h"
#include "kit/report/ReportAssembler.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <cstdio>
#include <fstream>

namespace {

using namespace tessivo;
using namespace tessivo::bench;
namespace fs = std::filesystem;

constexpr int reportCount = 10'000;

long residentKB() {
    long pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return resident * 4;
}

void fill(const fs::path& folder) {
    fs::create_directories(folder);
    SessionState session = Samples::session();
    for (int i = 0; i < reportCount; ++i) {
        session.machine.serial = "SERIAL" + std::to_string(i / 10);
        const auto report =
            ReportAssembler::make(session, Date{794'000'000.0 + i * 60}, "1.0", Samples::notes());
        std::ofstream(folder / (report.id.text() + ".json")) << HistoryStore::encode(report);
    }
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const Theme theme(application);
    const Folder support;
    fill(support.path() / "History");

    Mac mac({.applicationSupport = std::vector{support.path()}});
    const long before = residentKB();
    QElapsedTimer timer;
    timer.start();
    AppModel model(mac.platform);
    const double modelTime = double(timer.nsecsElapsed()) / 1e6;
    model.history();
    const double listTime = double(timer.nsecsElapsed()) / 1e6;
    const long withModel = residentKB();

    double longest = 0;
    timer.restart();
    std::unique_ptr<QWidget> page(makePage(Page::history, {model, mac.dialogs}, nullptr));
    page->resize(pageSize);
    page->show();
    const double made = double(timer.nsecsElapsed()) / 1e6;
    longest = std::max(longest, made);
    QElapsedTimer turn;
    do {
        turn.start();
        QApplication::processEvents(QEventLoop::AllEvents, 5);
        longest = std::max(longest, double(turn.nsecsElapsed()) / 1e6);
    } while (timer.elapsed() < 500);
    auto* list = page->findChild<QListView*>();
    timer.restart();
    list->setCurrentIndex(list->model()->index(1, 0));
    QApplication::processEvents();
    const double selected = double(timer.nsecsElapsed()) / 1e6;

    std::printf("%zu reports in %d rows\n", model.history().size(), list->model()->rowCount());
    std::printf("launch, the folder being read     %8.1f ms\n", modelTime);
    std::printf("all of the folder read            %8.1f ms\n", listTime);
    std::printf("page made, shown, list usable     %8.1f ms\n", made);
    std::printf("longest stall while it opens      %8.1f ms\n", longest);
    std::printf("first report selected and shown   %8.1f ms\n", selected);
    std::printf("memory: model %ld KB, page %ld KB\n", withModel - before, residentKB() - withModel);
}
