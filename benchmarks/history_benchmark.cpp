// Opening History with many reports: time to a usable list, the longest stall of the main thread, memory.
#include "app/controls/Theme.h"
#include "app/pages/Pages.h"
#include "kit/Samples.h"
#include "kit/report/ReportAssembler.h"
#include "platform/simulated/MachineFile.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedPlatform.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <stdlib.h>
#include <sys/resource.h>

namespace {

using namespace tessivo;
namespace fs = std::filesystem;

constexpr int reportCount = 10'000;

long residentKB() {
    long pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return resident * 4;
}

class NoDialogs final : public Dialogs {
    std::optional<fs::path> savePath(QWidget*, FileKind, const QString&) override { return {}; }
    std::vector<fs::path> openReportFiles(QWidget*, const QString&) override { return {}; }
    bool choosePrinter(QWidget*, QPrinter&) override { return false; }
    bool confirm(QWidget*, const QString&, const QString&, const QString&, const QString&) override {
        return false;
    }
    void inform(QWidget*, const QString&, const QString&) override {}
};

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
    std::string name = (fs::temp_directory_path() / "tessivo-bench-XXXXXX").string();
    const fs::path support = ::mkdtemp(name.data());
    fill(support / "History");

    ManualScheduler clock{Date{795'000'000}};
    SimulatedPlatform mac(loadMachineFile(TESSIVO_MACHINES "/macbook-air-m2.json"), clock,
                          {.applicationSupport = std::vector{support}});
    NoDialogs dialogs;
    const long before = residentKB();
    QElapsedTimer timer;
    timer.start();
    AppModel model(mac);
    const double modelTime = double(timer.nsecsElapsed()) / 1e6;
    const long withModel = residentKB();

    double longest = 0;
    timer.restart();
    std::unique_ptr<QWidget> page(makePage(Page::history, {model, dialogs}, nullptr));
    page->resize(950, 752);
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
    std::printf("reading the folder at launch      %8.1f ms\n", modelTime);
    std::printf("page made, shown, list usable     %8.1f ms\n", made);
    std::printf("longest stall while it opens      %8.1f ms\n", longest);
    std::printf("first report selected and shown   %8.1f ms\n", selected);
    std::printf("memory: model %ld KB, page %ld KB\n", withModel - before, residentKB() - withModel);
    page.reset();
    fs::remove_all(support);
    return 0;
}
