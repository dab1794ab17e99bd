#pragma once

#include "app/controls/WrapRow.h"
#include "app/pages/PageContext.h"
#include "app/readers/CameraMonitor.h"

namespace tessivo {

class CameraRow;
class CaptureDeviceList;

/// The camera test: opens one camera at a time, shows its picture and asks how it looked. Lets go of the
/// camera as soon as the page is left.
class CamerasView final : public Column {
    Q_OBJECT

public:
    static const char* const how;

    explicit CamerasView(const PageContext& context, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void makeRows();
    void toggle(const CaptureDevice& device);
    void open(const CaptureDevice& device);
    /// Runs the action on the reading of this id, if the session has one and it changes.
    void changeReading(const std::string& id, const std::function<void(CameraReading&)>& action);
    void showAnswers();
    void showOpen();

    AppModel& m_model;
    CaptureDeviceList* m_list;
    std::vector<CameraRow*> m_rows; ///< in the list's order
    CameraMonitor m_monitor;
};

} // namespace tessivo
