#include "app/window/Commands.h"

#include "app/model/QtText.h"
#include "app/pages/shared/ReportFlow.h"
#include "app/window/RootView.h"

#include <QApplication>
#include <QMenuBar>

namespace tessivo {

Commands::Commands(RootView& window, const PageContext& context, Updater& updater)
    : QObject(&window), m_window(window), m_context(context) {
    addApplicationMenu(updater);
    addFileMenu();
    // A system with a bar of its own looks there for what every program has: its panels take "Paste" from it.
    const bool underSystemBar = m_window.menuBar()->isNativeMenuBar();
    if (underSystemBar) addEditMenu();
    addGoMenu();
    if (underSystemBar) addWindowMenu();
    addHelpMenu();
}

QMenu& Commands::addMenu(const QString& title) {
    return *m_window.menuBar()->addMenu(title);
}

void Commands::add(QMenu& menu, const QString& text, Action action, const QKeySequence& shortcut) {
    QAction* item = menu.addAction(text);
    item->setMenuRole(QAction::NoRole);
    item->setShortcut(shortcut);
    connect(item, &QAction::triggered, this, action);
}

void Commands::addApplicationMenu(Updater& updater) {
    QMenu& menu = addMenu("&Tessivo");
    QAction* about = menu.addAction("&About Tessivo");
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, &Commands::about);
    QAction* check = menu.addAction("Check for &Updates…");
    check->setMenuRole(QAction::ApplicationSpecificRole);
    connect(check, &QAction::triggered, &updater, &Updater::checkForUpdates);
    menu.addSeparator();
    QAction* quit = menu.addAction("&Quit Tessivo");
    quit->setMenuRole(QAction::QuitRole);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit, &QAction::triggered, &m_window, &QWidget::close);
}

void Commands::addFileMenu() {
    QMenu& menu = addMenu("&File");
    add(menu, "Start &Over…", &Commands::startOver);
    menu.addSeparator();
    add(menu, "&Close", &Commands::closeKeyWindow, QKeySequence(Qt::CTRL | Qt::Key_W));
    menu.addSeparator();
    add(menu, "&Save Report as PDF…", &Commands::saveReport, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    add(menu, "Copy Report as &Text", &Commands::copyReport);
    menu.addSeparator();
    add(menu, "&Print Report…", &Commands::printReport, QKeySequence(Qt::CTRL | Qt::Key_P));
}

void Commands::addEditMenu() {
    QMenu& menu = addMenu("&Edit");
    const auto addEditing = [&](const char* text, QKeySequence::StandardKey key, const char* slot) {
        QAction* item = menu.addAction(text);
        // Left to Qt, which hands them to the system's own panels by their texts.
        item->setShortcut(key);
        connect(item, &QAction::triggered, this, [slot] {
            QWidget* field = QApplication::focusWidget();
            if (field && field->metaObject()->indexOfSlot(QByteArray(slot) + "()") >= 0)
                QMetaObject::invokeMethod(field, slot);
        });
    };
    addEditing("&Undo", QKeySequence::Undo, "undo");
    addEditing("&Redo", QKeySequence::Redo, "redo");
    menu.addSeparator();
    addEditing("Cut", QKeySequence::Cut, "cut");
    addEditing("Copy", QKeySequence::Copy, "copy");
    addEditing("Paste", QKeySequence::Paste, "paste");
    addEditing("Select All", QKeySequence::SelectAll, "selectAll");
}

void Commands::addGoMenu() {
    QMenu& menu = addMenu("&Go");
    int place = 1;
    for (const Page page : allCases<Page>()) {
        QAction* item = menu.addAction(qt(title(page)));
        item->setMenuRole(QAction::NoRole);
        if (place <= 9) item->setShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_0 + place)));
        connect(item, &QAction::triggered, this, [this, page] { m_context.model.setPage(page); });
        ++place;
    }
}

void Commands::addWindowMenu() {
    QMenu& menu = addMenu("&Window");
    add(menu, "&Minimize", &Commands::minimize, QKeySequence(Qt::CTRL | Qt::Key_M));
    add(menu, "&Zoom", &Commands::zoom);
    menu.addSeparator();
    add(menu, "&Bring All to Front", &Commands::bringToFront);
}

void Commands::addHelpMenu() {
    add(addMenu("&Help"), "Tessivo &Help", &Commands::openHelp);
}

void Commands::about() {
    m_context.dialogs.inform(
        &m_window, QString("Tessivo %1").arg(qt(AppModel::appVersion())),
        "Tests a used Mac and makes its condition report. Results and reports stay on this computer.");
}

void Commands::startOver() {
    if (m_context.dialogs.confirm(&m_window, "Start over?",
                                  "This clears every result on this Mac. Reports saved to History stay.",
                                  "Start Over", "Cancel"))
        m_context.model.reset();
}

void Commands::closeKeyWindow() {
    QWidget* key = QApplication::activeWindow();
    (key ? key : &m_window)->close();
}

void Commands::minimize() {
    m_window.showMinimized();
}

void Commands::zoom() {
    m_window.isMaximized() ? m_window.showNormal() : m_window.showMaximized();
}

void Commands::bringToFront() {
    m_window.raise();
}

void Commands::saveReport() {
    ReportFlow::savePDF(m_context, m_window.report(), &m_window, ReportFlow::History::keep);
}

void Commands::copyReport() {
    ReportFlow::copyText(m_context, m_window.report());
}

void Commands::printReport() {
    ReportFlow::print(m_context, m_window.report(), &m_window, ReportFlow::History::keep);
}

void Commands::openHelp() {
    m_context.model.platform().desktop().openURL(TESSIVO_HELP_URL);
}

} // namespace tessivo
