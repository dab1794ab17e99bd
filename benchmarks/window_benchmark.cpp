// How long a write to the session takes until every visible badge is painted anew, on This Mac and on a
// test's page. `window_benchmark`; set QT_QPA_PLATFORM to choose where it paints.

#include "app/look/Theme.h"
#include "app/window/AppDelegate.h"
#include "app/window/RootView.h"
#include "benchmarks/Bench.h"
#include "kit/Samples.h"

#include <QApplication>
#include <cstdio>
#include <set>

using namespace tessivo;
using namespace tessivo::bench;

namespace {

constexpr int rounds = 400;

/// Which widgets have been painted since it was last cleared.
class Painted final : public QObject {
public:
    explicit Painted(QWidget& window) {
        for (QWidget* widget : window.findChildren<QWidget*>())
            widget->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) widgets.insert(watched);
        return false;
    }
    std::set<QObject*> widgets;
};

void print(const char* what, std::size_t widgets, std::vector<double> times) {
    const Spread spread(std::move(times));
    std::printf("%-44s %3zu widgets painted, median %.3f ms, 99th percentile %.3f ms, largest %.3f ms\n",
                what, widgets, spread.median, spread.high, spread.largest);
}

/// Writes in turn two sessions that differ; each time from before the write until nothing is left to paint.
void measure(const char* what, Page page, const std::function<void(SessionState&, bool)>& write) {
    Mac mac;
    AppDelegate application(mac.platform, mac.dialogs);
    AppModel& model = application.model();
    model.setState(Samples::session(model.state().machine));
    model.setPage(page);
    application.window().resize(windowSize);
    application.open();
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents();
    std::vector<double> times;
    Painted painted(application.window());
    for (int round = 0; round < rounds; ++round) {
        const Stopwatch watch;
        model.change([&](SessionState& state) { write(state, round % 2 == 0); });
        QApplication::sendPostedEvents();
        QApplication::processEvents();
        times.push_back(watch.milliseconds());
    }
    painted.widgets.clear();
    model.change([&](SessionState& state) { write(state, true); });
    QApplication::processEvents();
    print(what, painted.widgets.size(), times);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const Theme theme(application);
    const auto everyBadge = [](SessionState& state, bool leaveOut) {
        for (const TestID test : state.tests())
            state.overrides[test].notIncluded = leaveOut;
    };
    const auto oneKey = [](SessionState& state, bool pressed) {
        state.keyboard = {};
        if (pressed) state.keyboard.press(0);
    };
    measure("This Mac, every badge", Page::overview, everyBadge);
    measure("This Mac, one key", Page::overview, oneKey);
    measure("Keyboard, every badge", Page::keyboard, everyBadge);
    measure("Keyboard, one key", Page::keyboard, oneKey);
    measure("Keyboard, an equal write", Page::keyboard, [](SessionState&, bool) {});
}
