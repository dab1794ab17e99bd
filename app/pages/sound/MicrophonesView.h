#pragma once

#include "app/controls/WrapRow.h"
#include "app/pages/PageContext.h"
#include "app/readers/MicMonitor.h"

namespace tessivo {

class CaptureDeviceList;
class MicrophoneRow;

/// The microphone test: listens to one microphone at a time and shows its level; the loudest of each goes
/// into the session. Lets go of the microphone as soon as the page is left.
class MicrophonesView final : public Column {
    Q_OBJECT

public:
    static const char* const how;

    explicit MicrophonesView(const PageContext& context, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void makeRows();
    void toggle(const CaptureDevice& device);
    void listen(const CaptureDevice& device);
    /// Runs the action on the reading of this id, if the session has one and it changes.
    void changeReading(const std::string& id, const std::function<void(MicReading&)>& action);
    void showReadings();
    void showLevel();

    AppModel& m_model;
    CaptureDeviceList* m_list;
    std::vector<MicrophoneRow*> m_rows; ///< in the list's order
    MicMonitor m_monitor;
};

} // namespace tessivo
