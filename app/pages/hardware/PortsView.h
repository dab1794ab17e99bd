#pragma once

#include "app/layout/Column.h"
#include "app/model/Poll.h"
#include "app/pages/PageContext.h"
#include "kit/hardware/USBDevice.h"

namespace tessivo {

class Button;
class Checkbox;
class Panel;
class PortRow;
class Stepper;
class TextLabel;

/// The port-by-port test: polls the USB devices while it is open and walks through the checklist.
class PortsView final : public Column {
    Q_OBJECT

public:
    static const char* const how;

    explicit PortsView(const PageContext& context, QWidget* parent = nullptr);

private:
    void scan();
    void showChecklist();
    void showConnected();

    AppModel& m_model;
    std::vector<USBDevice> m_connected;
    Stepper* m_count;
    Button* m_clear;
    Panel* m_slots;
    std::vector<PortRow*> m_rows;
    Panel* m_devices;
    TextLabel* m_noDevices;
    Checkbox* m_showHubs;
    std::vector<USBDevice> m_listed;
    std::unique_ptr<Poll> m_poll;
};

} // namespace tessivo
