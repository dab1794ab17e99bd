// How long a key takes from its event to the painted diagram, and whether the trackpad page keeps up with a
// flood of touches. `keyboard_benchmark`; set QT_QPA_PLATFORM to choose where it paints.

#include "app/look/Theme.h"
#include "app/pages/Pages.h"
#include "benchmarks/Bench.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <cstdio>

using namespace tessivo;
using namespace tessivo::bench;

namespace {

constexpr double frameAt120Hz = 1000.0 / 120;
constexpr int rounds = 40;

struct Bench {
    Mac mac;
    AppModel model{mac.platform};
    std::unique_ptr<QWidget> window;

    explicit Bench(Page page) {
        window.reset(makePage(page, {model, mac.dialogs}, nullptr));
        window->resize(pageSize);
        window->show();
        QApplication::setActiveWindow(window.get());
        QApplication::processEvents();
    }
};

void print(const char* what, std::vector<double> times) {
    const Spread spread(std::move(times));
    std::printf("%-34s median %.3f ms, 99th percentile %.3f ms, largest %.3f ms (frame %.2f ms)\n", what,
                spread.median, spread.high, spread.largest, frameAt120Hz);
}

/// Each key of the diagram, cleared and struck again: each time from the event to the end of the painting.
void keys() {
    Bench bench(Page::keyboard);
    for (auto* button : bench.window->findChildren<QAbstractButton*>())
        if (button->text() == QStringLiteral("Start")) button->click();
    std::vector<double> first, again;
    for (int round = 0; round < rounds; ++round) {
        bench.model.change([](SessionState& state) { state.keyboard = {}; });
        QApplication::processEvents();
        for (std::vector<double>* times : {&first, &again})
            for (quint32 scanCode = 10; scanCode < 60; ++scanCode) {
                const Stopwatch watch;
                QKeyEvent press(QEvent::KeyPress, Qt::Key_A, {}, scanCode, 0, 0);
                QApplication::sendEvent(bench.window.get(), &press);
                QApplication::processEvents();
                times->push_back(watch.milliseconds());
            }
    }
    print("key seen for the first time", first);
    print("key seen before", again);
}

/// 1,000 touch events a second for 10 seconds: how late each is handled, painting included.
void touches() {
    Bench bench(Page::trackpad);
    bench.mac.controls.setTouchesAimed(true);
    constexpr int perSecond = 1000, seconds = 10;
    std::vector<double> late;
    const Stopwatch watch;
    while (late.size() < std::size_t(perSecond * seconds)) {
        const double due = double(late.size()) * 1000 / perSecond;
        if (watch.milliseconds() < due) {
            QApplication::processEvents();
            continue;
        }
        const auto step = double(late.size() % 4000) / 4000;
        bench.mac.controls.touch({{step, std::abs(1 - 2 * step)}, {1 - step, step}});
        // A surface that never fills up: some of the events change the picture to the end.
        if (late.size() % 400 == 399) bench.model.change([](SessionState& state) { state.trackpad = {}; });
        QApplication::processEvents();
        late.push_back(watch.milliseconds() - due);
    }
    print("touch at 1,000 a second, lateness", late);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const Theme theme(application);
    QAccessible::setActive(false);
    keys();
    touches();
    return 0;
}
