#include "app/demo/DemoMac.h"

#include "app/model/QtText.h"
#include "platform/simulated/MachineFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace tessivo::demo {

namespace {

std::filesystem::path machines() {
    const std::filesystem::path installed =
        QCoreApplication::applicationDirPath().toStdString() + "/../share/tessivo/machines";
    return std::filesystem::exists(installed) ? installed : std::filesystem::path(TESSIVO_MACHINES_BUILD);
}

SimulatedPlatform::Storage storage(const std::string& name) {
    const std::filesystem::path folder = DemoMac::folder();
    QDir().mkpath(qt(folder.string()));
    return {.defaults = folder / (name + ".ini"), .applicationSupport = {{folder}}};
}

} // namespace

std::filesystem::path DemoMac::folder() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return std::filesystem::path(data.toStdString()) / "Tessivo Demo";
}

std::vector<std::string> DemoMac::names() {
    std::vector<std::string> names;
    std::error_code none;
    for (const auto& file : std::filesystem::directory_iterator(machines(), none))
        if (file.path().extension() == ".json") names.push_back(file.path().stem().string());
    std::ranges::sort(names);
    return names;
}

DemoMac::DemoMac(const std::string& name, Dialogs& dialogs)
    : m_platform(loadMachineFile(machines() / (name + ".json")), m_scheduler, storage(name)),
      m_controls(m_platform),
      m_application(m_platform, dialogs) {
    // The hand that works the control panel holds the pointer there.
    m_controls.setTouchesAimed(true);
}

DemoMac::~DemoMac() {
    m_application.model().persist();
}

} // namespace tessivo::demo
