#pragma once

#include "app/dialogs/Dialogs.h"
#include "app/model/AppModel.h"
#include "app/model/Updater.h"

#include <memory>

namespace tessivo {

class RootView;

/// One run of the application on a platform: model, updater and window, and what ties them to the life of
/// the process. Closing the window quits, and quitting stores the session at once. Main thread; platform and
/// dialogs outlive it.
class AppDelegate final : public QObject {
    Q_OBJECT
public:
    /// Throws std::runtime_error where there is no application support folder.
    AppDelegate(Platform& platform, Dialogs& dialogs, QObject* parent = nullptr);
    ~AppDelegate() override;

    AppModel& model() { return m_model; }
    Updater& updater() { return m_updater; }
    RootView& window() { return *m_window; }

    /// Brings the window up, on the page that is selected.
    void open();
    /// Before all other windows, also from the dock; where the desktop keeps it back, the window asks for
    /// attention. `token` as SingleInstance::startedAgain has it.
    void bringForward(const QByteArray& token = {});

private:
    void tell(const Updater::Alert& alert);

    Dialogs& m_dialogs;
    AppModel m_model;
    Updater m_updater;
    std::unique_ptr<RootView> m_window;
};

} // namespace tessivo
