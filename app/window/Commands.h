#pragma once

#include "app/model/Updater.h"
#include "app/pages/PageContext.h"

#include <QKeySequence>
#include <QObject>

class QMenu;

namespace tessivo {

class RootView;

/// The menus of the window and what they do. Lives as long as its window.
class Commands final : public QObject {
    Q_OBJECT
public:
    Commands(RootView& window, const PageContext& context, Updater& updater);

private:
    using Action = void (Commands::*)();

    void addApplicationMenu(Updater& updater);
    void addFileMenu();
    void addEditMenu();
    void addGoMenu();
    void addWindowMenu();
    void addHelpMenu();
    QMenu& addMenu(const QString& title);
    void add(QMenu& menu, const QString& text, Action action, const QKeySequence& shortcut = {});

    void about();
    void startOver();
    void closeKeyWindow();
    void minimize();
    void zoom();
    void bringToFront();
    void saveReport();
    void copyReport();
    void printReport();
    void openHelp();

    RootView& m_window;
    PageContext m_context;
};

} // namespace tessivo
