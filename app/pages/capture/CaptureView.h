#pragma once

#include "app/layout/Column.h"
#include "app/model/QtText.h"
#include "app/pages/PageContext.h"
#include "app/pages/capture/CaptureDeviceList.h"
#include "app/pages/frame/LiveContent.h"

#include <algorithm>

namespace tessivo {

/// What the pages of microphones and cameras share: a row for each device, one device open at a time, and
/// what the session keeps of each. Lets go of the open device when it drops out of an emptied list, when
/// access is taken away, and as soon as the page is left. `Monitor` holds the open device, `Row` shows one
/// and tells `toggled`, `Reading` is the session's record of it.
template <class Monitor, class Row, class Reading>
class CaptureView : public LiveContent {
protected:
    using Readings = std::vector<Reading> SessionState::*;

    CaptureView(const PageContext& context, MediaType type, const CaptureWords& words, Readings readings,
                QWidget* parent)
        : LiveContent(parent),
          m_model(context.model),
          m_readings(readings),
          m_list(new CaptureDeviceList(context.model, type, words)),
          m_monitor(context.model.platform().captureDevices(), context.model.platform().scheduler()) {
        add(m_list);
        connect(m_list, &CaptureDeviceList::devicesChanged, this, [this] { makeRows(); });
        connect(m_list, &CaptureDeviceList::accessDenied, &m_monitor, &Monitor::stop);
        connect(&m_model, &AppModel::stateChanged, this, [this] { follow(); });
    }

    /// The id of the device that the monitor has open.
    virtual const std::optional<std::string>& inUse() const = 0;
    /// False if the device can't be opened; the call tells what comes to light later.
    virtual bool open(const CaptureDevice& device, std::function<void(OpenFault)> onFault) = 0;
    virtual Row* makeRow(const CaptureDevice& device) = 0;
    /// Without a reading where the session has none of the device.
    virtual void showOn(Row& row, const Reading* reading, bool open) = 0;

    AppModel& model() { return m_model; }
    Monitor& monitor() { return m_monitor; }
    const Monitor& monitor() const { return m_monitor; }

    /// Brings every row up to date with the session and the monitor.
    void follow() {
        const auto& readings = m_model.state().*m_readings;
        for (std::size_t i = 0; i < m_rows.size(); ++i) {
            const std::string& id = m_list->devices()[i].uniqueID;
            const auto found = std::ranges::find(readings, id, &Reading::id);
            showOn(*m_rows[i], found == readings.end() ? nullptr : &*found, inUse() == id);
        }
    }

    /// Runs the action on the reading of this id, if the session has one and it changes.
    template <class Action>
    void changeReading(const std::string& id, Action action) {
        const auto& readings = m_model.state().*m_readings;
        const auto found = std::ranges::find(readings, id, &Reading::id);
        if (found == readings.end()) return;
        Reading reading = *found;
        action(reading);
        if (reading == *found) return;
        const auto index = std::size_t(found - readings.begin());
        m_model.change([&](SessionState& state) { (state.*m_readings)[index] = reading; });
    }

    void appear() override { m_list->appear(); }
    void disappear() override {
        m_list->disappear();
        m_monitor.stop();
    }

private:
    void makeRows() {
        m_list->clearRows();
        m_rows.clear();
        if (inUse() && std::ranges::count(m_list->devices(), *inUse(), &CaptureDevice::uniqueID) == 0)
            m_monitor.stop();
        for (const CaptureDevice& device : m_list->devices()) {
            Row* row = makeRow(device);
            connect(row, &Row::toggled, this, [this, device] { toggle(device); });
            m_list->addRow(row);
            m_rows.push_back(row);
        }
        follow();
    }

    void toggle(const CaptureDevice& device) {
        m_list->tell({});
        if (inUse() == device.uniqueID) return m_monitor.stop();
        m_list->withAccess([this, device] {
            const auto onFault = [this, device](OpenFault fault) { couldntOpen(device, fault); };
            if (!open(device, onFault)) couldntOpen(device, OpenFault::broken);
        });
    }

    void couldntOpen(const CaptureDevice& device, OpenFault fault) {
        // If the list is gone as well, the device isn't to blame.
        if (!m_list->canList()) return;
        const QString name = device.localizedName.empty() ? "the device" : qt(device.localizedName);
        switch (fault) {
        case OpenFault::broken:
            return changeReading(device.uniqueID, [](Reading& reading) { reading.failed = true; });
        case OpenFault::busy:
            return m_list->tell("Couldn't use " + name +
                                ": another program or the system holds it. "
                                "Close other programs, then try again.");
        case OpenFault::refused:
            return m_list->tell("The system doesn't let Tessivo use " + name +
                                ". Allow it in the settings, then try again.");
        }
    }

    AppModel& m_model;
    Readings m_readings;
    CaptureDeviceList* m_list;
    std::vector<Row*> m_rows; ///< in the list's order
    Monitor m_monitor;
};

} // namespace tessivo
