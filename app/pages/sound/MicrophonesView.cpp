#include "app/pages/sound/MicrophonesView.h"

#include "app/pages/sound/CaptureDeviceList.h"
#include "app/pages/sound/MicrophoneRow.h"

#include <QHideEvent>
#include <QShowEvent>
#include <algorithm>

namespace tessivo {

const char* const MicrophonesView::how =
    "Choose Listen for each microphone, then talk or clap near the Mac. The meter should jump. Nothing is "
    "recorded or saved; the sound is only measured while this page is open.";

MicrophonesView::MicrophonesView(const PageContext& context, QWidget* parent)
    : Column(parent),
      m_model(context.model),
      m_list(new CaptureDeviceList(context.model, MediaType::audio,
                                   QStringLiteral("Open Microphone Settings"),
                                   QStringLiteral("No microphone found."))),
      m_monitor(context.model.platform().captureDevices(), context.model.platform().scheduler()) {
    add(m_list);
    connect(m_list, &CaptureDeviceList::devicesChanged, this, &MicrophonesView::makeRows);
    connect(m_list, &CaptureDeviceList::accessDenied, &m_monitor, &MicMonitor::stop);
    connect(&m_monitor, &MicMonitor::listeningChanged, this, &MicrophonesView::showLevel);
    connect(&m_monitor, &MicMonitor::levelChanged, this, &MicrophonesView::showLevel);
    connect(&m_model, &AppModel::stateChanged, this, &MicrophonesView::showReadings);
}

void MicrophonesView::showEvent(QShowEvent* event) {
    Column::showEvent(event);
    if (!event->spontaneous()) m_list->appear();
}

void MicrophonesView::hideEvent(QHideEvent* event) {
    // A window that is only minimised keeps its page open.
    if (!event->spontaneous()) {
        m_list->disappear();
        m_monitor.stop();
    }
    Column::hideEvent(event);
}

void MicrophonesView::makeRows() {
    m_list->clearRows();
    m_rows.clear();
    const auto inUse = m_monitor.listening();
    if (inUse && std::ranges::count(m_list->devices(), *inUse, &CaptureDevice::uniqueID) == 0)
        m_monitor.stop();
    for (const CaptureDevice& device : m_list->devices()) {
        auto* row = new MicrophoneRow(QString::fromStdString(device.localizedName));
        connect(row, &MicrophoneRow::toggled, this, [this, device] { toggle(device); });
        m_list->addRow(row);
        m_rows.push_back(row);
    }
    showReadings();
    showLevel();
}

void MicrophonesView::toggle(const CaptureDevice& device) {
    if (m_monitor.listening() == device.uniqueID)
        m_monitor.stop();
    else
        m_list->withAccess([this, device] { listen(device); });
}

void MicrophonesView::listen(const CaptureDevice& device) {
    const std::string& id = device.uniqueID;
    const auto onPeak = [this, id](double level) {
        changeReading(id, [level](MicReading& reading) { reading.hear(level); });
    };
    if (!m_monitor.listen(device, onPeak))
        changeReading(id, [](MicReading& reading) { reading.failed = true; });
}

void MicrophonesView::changeReading(const std::string& id, const std::function<void(MicReading&)>& action) {
    const auto& readings = m_model.state().microphones;
    const auto found = std::ranges::find(readings, id, &MicReading::id);
    if (found == readings.end()) return;
    MicReading reading = *found;
    action(reading);
    if (reading == *found) return;
    const auto index = found - readings.begin();
    m_model.change([&](SessionState& state) { state.microphones[std::size_t(index)] = reading; });
}

void MicrophonesView::showReadings() {
    const auto& readings = m_model.state().microphones;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const auto found = std::ranges::find(readings, m_list->devices()[i].uniqueID, &MicReading::id);
        m_rows[i]->setReading(found == readings.end() ? nullptr : &*found);
    }
}

void MicrophonesView::showLevel() {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const bool listens = m_monitor.listening() == m_list->devices()[i].uniqueID;
        m_rows[i]->setLevel(listens ? std::optional(m_monitor.level()) : std::nullopt);
    }
}

} // namespace tessivo
