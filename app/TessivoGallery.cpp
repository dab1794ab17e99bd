// Pictures of every page, of a running keyboard test and of a comparison, light and dark, at the first size
// and the smallest: `tessivo-gallery FOLDER [PAGE...]`.

#include "app/dialogs/QtDialogs.h"
#include "app/look/Theme.h"
#include "app/window/AppDelegate.h"
#include "app/window/RootView.h"
#include "kit/Samples.h"
#include "kit/report/ReportAssembler.h"
#include "platform/qt/QtScheduler.h"
#include "platform/simulated/MachineFile.h"
#include "platform/simulated/SimulatedPlatform.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QKeyEvent>
#include <QListView>
#include <QTimer>
#include <cstdio>
#include <numeric>

using namespace tessivo;

namespace {

// Long enough for a page's first readings and the painting after them.
constexpr int settling = 250;
constexpr QSize firstSize(1180, 780); // whatever the screen that isn't there holds

void settle() {
    QEventLoop loop;
    QTimer::singleShot(settling, &loop, &QEventLoop::quit);
    loop.exec();
}

const QString keyboardRunning = QStringLiteral("keyboard-running");
const QString compare = QStringLiteral("compare");

struct Machine {
    const char* name;
    const char* file;
};

constexpr Machine machines[] = {{"laptop", "macbook-air-m2.json"}, {"desktop", "mac-mini-m4.json"}};

/// A session with every answer given and its report in History; on the laptop testing then goes on anew, so
/// that every status is seen.
void fill(AppModel& model) {
    SessionState session = Samples::session(model.state().machine);
    model.setState(session);
    model.setNotes(Samples::notes());
    model.saveToHistory(model.makeReport());
    model.setMessage(std::nullopt);
    if (session.kind() != MacKind::laptop) return;
    session.activationLock = ActivationLockAnswer::unanswered;
    session.display.answer = ManualAnswer::problem;
    session.overrides[TestID::display].problem = "One green dot near the left edge.";
    if (session.headphones) session.headphones->right = ManualAnswer::unanswered;
    session.microphones.clear();
    session.microphonesListed = false;
    session.cameras.clear();
    session.camerasListed = false;
    session.ports = PortChecklist::make(2);
    model.setState(session);
}

/// A keyboard test that has come to the middle of its third row, as the window system would tell the keys.
void runKeyboardTest(RootView& window, AppModel& model) {
    model.change([](SessionState& session) { session.keyboard = {}; });
    model.setPage(Page::keyboard);
    window.activateWindow();
    for (auto* button : window.findChildren<QAbstractButton*>())
        if (button->text() == QStringLiteral("Start")) button->click();
    std::vector<quint32> scanCodes(37); // from Esc through Q to H
    std::iota(scanCodes.begin(), scanCodes.end(), 9);
    std::erase_if(scanCodes, [](quint32 code) { return code == 36 || code == 37; }); // Return, Control
    scanCodes.insert(scanCodes.end(), {49, 51, 66, 44, 45});                         // `, \\, Caps Lock, J, K
    for (const quint32 code : scanCodes) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_A, {}, code, 0, 0);
        QApplication::sendEvent(&window, &press);
    }
}

/// The comparison of a report in History with this Mac now, tested again: a key died, the battery is another
/// one, and the display wasn't looked at.
void openComparison(RootView& window, AppModel& model) {
    SessionState session = Samples::session(model.state().machine);
    session.started = Date::now();
    if (!session.microphones.empty()) session.microphones.front().peak = -9.0;
    session.display.answer = ManualAnswer::unanswered;
    session.display.shown.clear();
    session.overrides[TestID::keyboard].problem = "The F key gives nothing.";
    model.setState(session);
    const Date sold{session.started.seconds - 9 * 86'400};
    model.saveToHistory(
        ReportAssembler::make(Samples::session(session.machine), sold, AppModel::appVersion(), {}));
    // Another Mac's report, so that there is something to search for.
    MachineInfo other = Samples::machine();
    other.modelID = "MacBookPro17,1";
    model.saveToHistory(
        ReportAssembler::make(Samples::session(other), {sold.seconds - 1}, AppModel::appVersion(), {}));
    model.setPage(Page::history);
    settle();
    auto* list = window.findChild<QListView*>();
    list->setCurrentIndex(list->model()->index(2, 0));
    settle();
    for (auto* button : window.findChildren<QAbstractButton*>())
        if (button->text() == QStringLiteral("Compare…")) button->click();
    while (model.reading())
        settle();
}

int takeAll(const QDir& folder, const QStringList& wanted, Dialogs& dialogs) {
    const auto isWanted = [&](const QString& name) { return wanted.isEmpty() || wanted.contains(name); };
    int pictures = 0;
    for (const Machine& machine : machines) {
        for (const bool dark : {false, true}) {
            QApplication::setPalette(Theme::palette(dark));
            QtScheduler scheduler;
            SimulatedPlatform platform(
                loadMachineFile(std::string(TESSIVO_MACHINES_BUILD "/") + machine.file), scheduler);
            AppDelegate delegate(platform, dialogs);
            RootView& window = delegate.window();
            fill(delegate.model());
            delegate.open();
            const auto take = [&](const QString& name, bool smallest) {
                settle();
                const QString file = QStringLiteral("%1-%2%3-%4.png")
                                         .arg(name, QLatin1String(machine.name),
                                              smallest ? QStringLiteral("-smallest") : QString(),
                                              dark ? QStringLiteral("dark") : QStringLiteral("light"));
                if (!window.grab().save(folder.filePath(file)))
                    throw std::runtime_error(file.toStdString() + " couldn't be written");
                ++pictures;
            };
            for (const bool smallest : {true, false}) {
                window.resize(smallest ? window.minimumSize() : firstSize);
                for (const Page page : allCases<Page>()) {
                    const QString name = QString::fromLatin1(rawValue(page).data());
                    if (!isWanted(name)) continue;
                    delegate.model().setPage(page);
                    take(name, smallest);
                }
            }
            if (isWanted(keyboardRunning)) {
                runKeyboardTest(window, delegate.model());
                take(keyboardRunning, false);
            }
            if (!isWanted(compare)) continue;
            openComparison(window, delegate.model());
            take(compare, false);
            window.resize(window.minimumSize());
            take(compare, true);
        }
    }
    return pictures;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s FOLDER [PAGE...]\n", argv[0]);
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    folder.mkpath(QStringLiteral("."));
    const QStringList wanted = QApplication::arguments().mid(2);
    const Theme theme(application);
    QtDialogs dialogs;
    try {
        std::printf("%d pictures in %s\n", takeAll(folder, wanted, dialogs),
                    qPrintable(folder.absolutePath()));
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
