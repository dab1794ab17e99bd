// What reading a changing computer costs: one scan of many devices and interfaces, and an open Ports page.
#include "app/controls/Theme.h"
#include "app/pages/Pages.h"
#include "app/readers/Readers.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/simulated/MachineFile.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"

#include <QApplication>
#include <benchmark/benchmark.h>
#include <ctime>
#include <fstream>
#include <stdlib.h>

namespace {

using namespace tessivo;
namespace fs = std::filesystem;

constexpr int deviceCount = 200;
constexpr int interfaceCount = 50;

void put(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text << '\n';
}

/// A system tree with many USB devices and network interfaces, as the kernel lays them out.
class BusyTree {
public:
    BusyTree() {
        std::string name = (fs::temp_directory_path() / "tessivo-bench-XXXXXX").string();
        m_root = ::mkdtemp(name.data());
        for (int i = 0; i < deviceCount; ++i) {
            const fs::path device = m_root / "sys/bus/usb/devices" /
                                    (std::to_string(1 + i / 100) + "-" + std::to_string(1 + i % 100));
            put(device / "product", "Device " + std::to_string(i));
            put(device / "manufacturer", "Maker");
            put(device / "idVendor", "0951");
            put(device / "idProduct", "1666");
            put(device / "bDeviceClass", "00");
            put(device / "speed", "5000");
        }
        for (int i = 0; i < interfaceCount; ++i) {
            const fs::path port = m_root / "sys/class/net" / ("eth" + std::to_string(i));
            put(port / "type", "1");
            put(port / "operstate", "up");
            put(port / "carrier", "1");
            put(port / "speed", "1000");
        }
    }
    ~BusyTree() { fs::remove_all(m_root); }

    const fs::path& root() const { return m_root; }

private:
    fs::path m_root;
};

void scanUSB(benchmark::State& state) {
    const BusyTree tree;
    LinuxPlatform platform(tree.root());
    std::size_t found = 0;
    for (auto _ : state)
        found = readUSBDevices(platform.registry()).size();
    state.counters["devices"] = double(found);
}
BENCHMARK(scanUSB)->Unit(benchmark::kMicrosecond);

void scanInterfaces(benchmark::State& state) {
    const BusyTree tree;
    LinuxPlatform platform(tree.root());
    std::size_t found = 0;
    for (auto _ : state)
        found = readWiredInterfaces(platform.registry()).size();
    state.counters["interfaces"] = double(found);
}
BENCHMARK(scanInterfaces)->Unit(benchmark::kMicrosecond);

double processorSeconds() {
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

/// An open Ports page over 60 simulated seconds, with a device plugged and pulled every five.
void openPortsPage(benchmark::State& state) {
    using namespace std::chrono_literals;
    constexpr int seconds = 60;
    ManualScheduler clock{Date{794'000'000}};
    SimulatedPlatform mac(loadMachineFile(TESSIVO_MACHINES "/macbook-air-m2.json"), clock);
    SimulatedControls controls(mac);
    AppModel model(mac);
    class NoDialogs final : public Dialogs {
        std::optional<fs::path> savePath(QWidget*, FileKind, const QString&) override { return {}; }
        std::vector<fs::path> openReportFiles(QWidget*, const QString&) override { return {}; }
        bool choosePrinter(QWidget*, QPrinter&) override { return false; }
        bool confirm(QWidget*, const QString&, const QString&, const QString&, const QString&) override {
            return false;
        }
        void inform(QWidget*, const QString&, const QString&) override {}
    } dialogs;
    double used = 0;
    for (auto _ : state) {
        std::unique_ptr<QWidget> page(makePage(Page::ports, {model, dialogs}, nullptr));
        page->resize(950, 752);
        page->show();
        QApplication::processEvents();
        const double before = processorSeconds();
        for (int second = 0; second < seconds; ++second) {
            if (second % 10 == 0) controls.plugUSB("Stick", 0x0951, 0x1666, 0x01100000);
            if (second % 10 == 5) controls.unplugUSB(0x01100000);
            clock.advance(1s);
            QApplication::processEvents();
        }
        used += processorSeconds() - before;
    }
    state.counters["processor share %"] = 100 * used / double(state.iterations()) / seconds;
}
BENCHMARK(openPortsPage)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const Theme theme(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
