#pragma once

#include "app/controls/Panel.h"
#include "app/model/AppModel.h"
#include "platform/Capture.h"

namespace tessivo {

class Button;

/// What the pages of microphones and cameras share. When the page appears it asks for access; it tells of a
/// denial and of the lack of devices, and lists the devices into the session. While there is nothing to show
/// it looks once a second, so that a device plugged in, or access given in the settings, is found; a list
/// with devices stays as it is, for a device that drops out would lose its reading. The owner makes the rows.
class CaptureDeviceList final : public Column {
    Q_OBJECT

public:
    CaptureDeviceList(AppModel& model, MediaType type, const QString& openSettings, const QString& noneFound,
                      QWidget* parent = nullptr);

    const std::vector<CaptureDevice>& devices() const { return m_devices; }
    /// Takes all rows out and deletes them.
    void clearRows();
    void addRow(QWidget* row);

    void appear();
    void disappear();
    /// Runs the action once access is known to be given, unless the page has gone by then. A denial goes
    /// into the session and takes the rows away.
    void withAccess(std::function<void()> action);

Q_SIGNALS:
    void devicesChanged();
    void accessDenied();

private:
    void write(bool denied);
    void list();
    void lookAgainSoon();
    void lookAgain();
    /// What stands in the place of the rows, or the rows.
    void showOnly(QWidget* part);

    AppModel& m_model;
    MediaType m_type;
    bool m_open = false;
    std::vector<CaptureDevice> m_devices;
    Panel* m_rows;
    Panel* m_empty;
    Panel* m_denied;
    Button* m_settings;
    QWidget* m_lastStop; ///< of the Tab key, among the rows
    std::unique_ptr<Scheduled> m_next;
};

} // namespace tessivo
