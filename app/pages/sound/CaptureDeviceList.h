#pragma once

#include "app/controls/Panel.h"
#include "app/model/AppModel.h"
#include "platform/Capture.h"

namespace tessivo {

class Button;

/// What the pages of microphones and cameras share. When the page appears it asks for access; it tells of a
/// denial and of the lack of devices, and lists the devices into the session. Once a second it looks again: a
/// device plugged in where there was none, or access given in the settings, is found, and a list that has
/// become empty is told. A list with devices stays as it is, also when one drops out. No reading is lost
/// until the page is opened anew. The owner makes the rows.
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
    /// The list at the page's beginning: a device that has gone loses its reading.
    void list();
    void lookAgainSoon();
    void lookAgain();
    void take(std::vector<CaptureDevice> devices);
    std::vector<CaptureDevice> listDevices() const;
    /// What stands in the place of the rows, or the rows.
    void showOnly(QWidget* part);

    AppModel& m_model;
    MediaType m_type;
    bool m_open = false;
    bool m_listed = false; ///< since the page was opened
    bool m_lost = false;   ///< since then the list was empty
    std::vector<CaptureDevice> m_devices;
    Panel* m_rows;
    Panel* m_empty;
    Panel* m_denied;
    Button* m_settings;
    QWidget* m_lastStop; ///< of the Tab key, among the rows
    std::unique_ptr<Scheduled> m_next;
};

} // namespace tessivo
