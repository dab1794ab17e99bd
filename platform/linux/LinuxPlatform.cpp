#include "platform/linux/LinuxPlatform.h"

#include <QStandardPaths>

namespace tessivo {

namespace {

constexpr std::chrono::seconds deviceWait(2);

std::filesystem::path settingsFile() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::filesystem::path(folder.toStdString()) / "Tessivo" / "Tessivo.json";
}

} // namespace

LinuxPlatform::LinuxPlatform(const std::filesystem::path& root, std::shared_ptr<SourceRecord> record)
    : m_machineFacts(SystemTree(root, record)),
      m_registry(SystemTree(root, record)),
      m_powerSources(SystemTree(root, record)),
      m_systemTools(root),
      m_captureDevices(m_soundServer, "/dev", SystemTree("/", record)),
      m_defaults(settingsFile()),
      m_updateFramework(m_desktop) {}

void LinuxPlatform::waitForDevices() {
    m_soundServer->waitUntilSettled(deviceWait);
    m_captureDevices.waitForCameras(deviceWait);
}

} // namespace tessivo
