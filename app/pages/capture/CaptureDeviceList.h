#pragma once

#include "app/controls/Panel.h"
#include "app/layout/Column.h"
#include "app/model/AppModel.h"
#include "app/pages/capture/CaptureWords.h"
#include "platform/Capture.h"

namespace tessivo {

class Button;
class TextLabel;

/// What the pages of microphones and cameras share. When the page appears it asks for access; it tells of a
/// denial and of the lack of devices, and lists the devices into the session. Once a second it looks again: a
/// device plugged in where there was none, or access given in the settings, is found, and a list that has
/// become empty is told. A list with devices stays as it is, also when one drops out. No reading is lost
/// until the page is opened anew. Where there is no list the page says why and writes nothing into the
/// session. The owner makes the rows.
class CaptureDeviceList final : public Column {
    Q_OBJECT

public:
    CaptureDeviceList(AppModel& model, MediaType type, const CaptureWords& words, QWidget* parent = nullptr);

    const std::vector<CaptureDevice>& devices() const { return m_devices; }
    /// Takes all rows out and deletes them.
    void clearRows();
    void addRow(QWidget* row);

    void appear();
    void disappear();
    /// Runs the action once access is known to be given, unless the page has gone by then or there is no
    /// list. A denial goes into the session and takes the rows away.
    void withAccess(std::function<void()> action);
    /// Whether there is a list just now; if not, the page says why.
    bool canList();
    /// One line under the rows; an empty one takes it away.
    void tell(const QString& line);

Q_SIGNALS:
    void devicesChanged();
    void accessDenied();

private:
    void write(bool denied);
    /// The list at the page's beginning: a device that has gone loses its reading.
    void list(std::vector<CaptureDevice> devices);
    /// Into the session. Readings of devices that have gone are kept, or not.
    void keep(const std::vector<CaptureDevice>& devices, bool keepGone);
    void couldntList(CaptureList::Fault fault);
    void lookAgainSoon();
    void lookAgain();
    void take(std::vector<CaptureDevice> devices);
    CaptureList listDevices() const;
    /// What stands in the place of the rows, or the rows.
    void showOnly(QWidget* part);

    AppModel& m_model;
    MediaType m_type;
    bool m_open = false;
    bool m_allowed = false; ///< access was known to be given since the page was opened
    bool m_listed = false;  ///< since then
    bool m_lost = false;    ///< since then the list was empty, or there was none
    CaptureWords m_words;
    std::vector<CaptureDevice> m_devices;
    Panel* m_rows;
    Panel* m_empty;
    Panel* m_denied;
    Panel* m_unlisted;
    TextLabel* m_reason; ///< why there is no list
    TextLabel* m_note;
    Button* m_settings;
    QWidget* m_lastStop; ///< of the Tab key, among the rows
    std::unique_ptr<Scheduled> m_next;
};

} // namespace tessivo
