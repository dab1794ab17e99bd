// Pictures of every page, light and dark, at the first size and the smallest: `tessivo-gallery FOLDER
// [PAGE...]`.

#include "app/controls/QtDialogs.h"
#include "app/controls/Theme.h"
#include "app/window/AppDelegate.h"
#include "app/window/RootView.h"
#include "kit/Samples.h"
#include "platform/QtScheduler.h"
#include "platform/simulated/MachineFile.h"
#include "platform/simulated/SimulatedPlatform.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QTimer>
#include <cstdio>

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
            for (const bool smallest : {false, true}) {
                window.resize(smallest ? window.minimumSize() : firstSize);
                for (const Page page : allCases<Page>()) {
                    const QString name = QString::fromLatin1(rawValue(page).data());
                    if (!wanted.isEmpty() && !wanted.contains(name)) continue;
                    delegate.model().setPage(page);
                    settle();
                    const QString file = QStringLiteral("%1-%2%3-%4.png")
                                             .arg(name, QLatin1String(machine.name),
                                                  smallest ? QStringLiteral("-smallest") : QString(),
                                                  dark ? QStringLiteral("dark") : QStringLiteral("light"));
                    if (!window.grab().save(folder.filePath(file))) {
                        std::fprintf(stderr, "%s couldn't be written\n", qPrintable(file));
                        return 1;
                    }
                    ++pictures;
                }
            }
        }
    }
    std::printf("%d pictures in %s\n", pictures, qPrintable(folder.absolutePath()));
}
