#include "app/window/Commands.h"

#include "app/pages/shared/ReportFlow.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

namespace tessivo {

Commands::Commands(QMainWindow& window, const PageContext& context, Updater& updater)
    : QObject(&window), m_window(window), m_context(context) {
    addApplicationMenu(updater);
    addFileMenu();
    addGoMenu();
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
    QMenu& menu = addMenu(QStringLiteral("&Tessivo"));
    QAction* about = menu.addAction(QStringLiteral("&About Tessivo"));
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, &Commands::about);
    QAction* check = menu.addAction(QStringLiteral("Check for &Updates…"));
    check->setMenuRole(QAction::ApplicationSpecificRole);
    connect(check, &QAction::triggered, &updater, &Updater::checkForUpdates);
    menu.addSeparator();
    QAction* quit = menu.addAction(QStringLiteral("&Quit Tessivo"));
    quit->setMenuRole(QAction::QuitRole);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit, &QAction::triggered, &m_window, &QWidget::close);
}

void Commands::addFileMenu() {
    QMenu& menu = addMenu(QStringLiteral("&File"));
    add(menu, QStringLiteral("Start &Over…"), &Commands::startOver);
    menu.addSeparator();
    add(menu, QStringLiteral("&Close"), &Commands::closeKeyWindow, QKeySequence(Qt::CTRL | Qt::Key_W));
    menu.addSeparator();
    add(menu, QStringLiteral("&Save Report as PDF…"), &Commands::saveReport,
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    add(menu, QStringLiteral("Copy Report as &Text"), &Commands::copyReport);
    menu.addSeparator();
    add(menu, QStringLiteral("&Print Report…"), &Commands::printReport, QKeySequence(Qt::CTRL | Qt::Key_P));
}

void Commands::addGoMenu() {
    QMenu& menu = addMenu(QStringLiteral("&Go"));
    int place = 1;
    for (const Page page : allCases<Page>()) {
        QAction* item = menu.addAction(QString::fromUtf8(title(page)));
        item->setMenuRole(QAction::NoRole);
        if (place <= 9) item->setShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_0 + place)));
        connect(item, &QAction::triggered, this, [this, page] { m_context.model.setPage(page); });
        ++place;
    }
}

void Commands::addHelpMenu() {
    add(addMenu(QStringLiteral("&Help")), QStringLiteral("Tessivo &Help"), &Commands::openHelp);
}

void Commands::about() {
    m_context.dialogs.inform(
        &m_window, QStringLiteral("Tessivo %1").arg(QString::fromStdString(AppModel::appVersion())),
        QStringLiteral(
            "Tests a used Mac and makes its condition report. Results and reports stay on this computer."));
}

void Commands::startOver() {
    if (m_context.dialogs.confirm(
            &m_window, QStringLiteral("Start over?"),
            QStringLiteral("This clears every result on this Mac. Reports saved to History stay."),
            QStringLiteral("Start Over"), QStringLiteral("Cancel")))
        m_context.model.reset();
}

void Commands::closeKeyWindow() {
    QWidget* key = QApplication::activeWindow();
    (key ? key : &m_window)->close();
}

void Commands::saveReport() {
    const ConditionReport report = m_context.model.makeReport();
    if (ReportFlow::savePDF(m_context, report, &m_window)) m_context.model.saveToHistory(report);
}

void Commands::copyReport() {
    ReportFlow::copyText(m_context, m_context.model.makeReport());
}

void Commands::printReport() {
    const ConditionReport report = m_context.model.makeReport();
    ReportFlow::print(m_context, report, &m_window);
    m_context.model.saveToHistory(report);
}

void Commands::openHelp() {
    m_context.model.platform().desktop().openURL(TESSIVO_HELP_URL);
}

} // namespace tessivo
