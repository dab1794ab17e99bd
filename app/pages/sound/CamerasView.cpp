#include "app/pages/sound/CamerasView.h"

#include "app/pages/sound/CameraRow.h"
#include "app/pages/sound/CaptureDeviceList.h"

#include <QHideEvent>
#include <QShowEvent>
#include <algorithm>

namespace tessivo {

const char* const CamerasView::how =
    "Open each camera and look at the picture: it should be sharp and clear, with no spots, lines or odd "
    "colors. Nothing is recorded or saved.";

CamerasView::CamerasView(const PageContext& context, QWidget* parent)
    : Column(parent),
      m_model(context.model),
      m_list(new CaptureDeviceList(context.model, MediaType::video, QStringLiteral("Open Camera Settings"),
                                   QStringLiteral("No camera found."))),
      m_monitor(context.model.platform().captureDevices(), context.model.platform().scheduler()) {
    add(m_list);
    connect(m_list, &CaptureDeviceList::devicesChanged, this, &CamerasView::makeRows);
    connect(m_list, &CaptureDeviceList::accessDenied, &m_monitor, &CameraMonitor::stop);
    connect(&m_monitor, &CameraMonitor::showingChanged, this, &CamerasView::showOpen);
    connect(&m_monitor, &CameraMonitor::framesSeenChanged, this, &CamerasView::showOpen);
    connect(&m_model, &AppModel::stateChanged, this, &CamerasView::showAnswers);
}

void CamerasView::showEvent(QShowEvent* event) {
    Column::showEvent(event);
    if (!event->spontaneous()) m_list->appear();
}

void CamerasView::hideEvent(QHideEvent* event) {
    // A window that is only minimised keeps its page open.
    if (!event->spontaneous()) {
        m_list->disappear();
        m_monitor.stop();
    }
    Column::hideEvent(event);
}

void CamerasView::makeRows() {
    m_list->clearRows();
    m_rows.clear();
    const auto inUse = m_monitor.showing();
    if (inUse && std::ranges::count(m_list->devices(), *inUse, &CaptureDevice::uniqueID) == 0)
        m_monitor.stop();
    for (const CaptureDevice& device : m_list->devices()) {
        auto* row = new CameraRow(QString::fromStdString(device.localizedName), m_monitor,
                                  m_model.platform().scheduler());
        connect(row, &CameraRow::toggled, this, [this, device] { toggle(device); });
        connect(row, &CameraRow::answered, this, [this, device](ManualAnswer answer) {
            changeReading(device.uniqueID, [answer](CameraReading& reading) { reading.answer = answer; });
        });
        m_list->addRow(row);
        m_rows.push_back(row);
    }
    showAnswers();
    showOpen();
}

void CamerasView::toggle(const CaptureDevice& device) {
    if (m_monitor.showing() == device.uniqueID)
        m_monitor.stop();
    else
        m_list->withAccess([this, device] { open(device); });
}

void CamerasView::open(const CaptureDevice& device) {
    const std::string& id = device.uniqueID;
    const auto onFrames = [this, id] {
        changeReading(id, [](CameraReading& reading) { reading.framesSeen = true; });
    };
    if (!m_monitor.show(device, onFrames))
        changeReading(id, [](CameraReading& reading) { reading.failed = true; });
}

void CamerasView::changeReading(const std::string& id, const std::function<void(CameraReading&)>& action) {
    const auto& readings = m_model.state().cameras;
    const auto found = std::ranges::find(readings, id, &CameraReading::id);
    if (found == readings.end()) return;
    CameraReading reading = *found;
    action(reading);
    if (reading == *found) return;
    const auto index = found - readings.begin();
    m_model.change([&](SessionState& state) { state.cameras[std::size_t(index)] = reading; });
}

void CamerasView::showAnswers() {
    const auto& readings = m_model.state().cameras;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const auto found = std::ranges::find(readings, m_list->devices()[i].uniqueID, &CameraReading::id);
        m_rows[i]->setAnswer(found == readings.end() ? ManualAnswer::unanswered : found->answer);
    }
}

void CamerasView::showOpen() {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const bool open = m_monitor.showing() == m_list->devices()[i].uniqueID;
        m_rows[i]->setOpen(open, open && m_monitor.framesSeen());
    }
}

} // namespace tessivo
