#pragma once

#include "app/dialogs/Dialogs.h"
#include "platform/simulated/MachineFile.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"

#include <QSize>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <stdlib.h>
#include <string>
#include <vector>

/// What the programs that time the application share.
namespace tessivo::bench {

inline constexpr QSize windowSize(1180, 780);
inline constexpr QSize pageSize(950, 752); ///< the detail area of that window

/// Dialogs that nobody answers.
class NoDialogs final : public Dialogs {
public:
    std::optional<std::filesystem::path> savePath(QWidget*, FileKind, const QString&) override { return {}; }
    std::vector<std::filesystem::path> openReportFiles(QWidget*, const QString&) override { return {}; }
    bool choosePrinter(QWidget*, QPrinter&) override { return false; }
    bool confirm(QWidget*, const QString&, const QString&, const QString&, const QString&) override {
        return false;
    }
    void inform(QWidget*, const QString&, const QString&) override {}
};

/// A laptop on a clock that is moved by hand.
struct Mac {
    explicit Mac(SimulatedPlatform::Storage storage = {})
        : platform(loadMachineFile(TESSIVO_MACHINES "/macbook-air-m2.json"), clock, std::move(storage)) {}

    ManualScheduler clock{Date{795'000'000}};
    SimulatedPlatform platform;
    SimulatedControls controls{platform};
    NoDialogs dialogs;
};

/// A folder that is thrown away.
class Folder final {
public:
    Folder() {
        std::string name = (std::filesystem::temp_directory_path() / "tessivo-bench-XXXXXX").string();
        m_path = ::mkdtemp(name.data());
    }
    ~Folder() { std::filesystem::remove_all(m_path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

class Stopwatch final {
public:
    double milliseconds() const {
        return std::chrono::duration<double, std::milli>(Clock::now() - m_start).count();
    }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point m_start = Clock::now();
};

/// How a row of times is told: in milliseconds.
struct Spread {
    explicit Spread(std::vector<double> times) {
        std::ranges::sort(times);
        smallest = times.front();
        median = times[times.size() / 2];
        high = times[times.size() * 99 / 100];
        largest = times.back();
    }
    double smallest, median, high, largest; ///< `high` is the 99th percentile
};

} // namespace tessivo::bench
