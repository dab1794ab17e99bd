#include "app/pages/capture/CaptureDeviceList.h"

#include "app/controls/Button.h"
#include "app/controls/TextLabel.h"
#include "app/look/Metrics.h"
#include "app/model/QtText.h"
#include "app/readers/CaptureAccess.h"
#include "kit/rules/Rules.h"

#include <algorithm>

namespace tessivo {

namespace {

constexpr auto lookInterval = std::chrono::seconds(1);

/// What the rule says where access is off.
std::vector<std::string> denial(MediaType type) {
    const auto result = type == MediaType::video ? Rules::cameras({}, false, true, std::nullopt)
                                                 : Rules::microphones({}, false, true, std::nullopt);
    return result.details;
}

/// All readings so far, also those of devices that have gone, and behind them one for each new device.
template <class Reading>
std::vector<Reading> extended(const std::vector<Reading>& old, const std::vector<CaptureDevice>& devices) {
    std::vector<Reading> readings = old;
    for (Reading& reading : relisted(old, devices))
        if (std::ranges::count(old, reading.id, &Reading::id) == 0) readings.push_back(std::move(reading));
    return readings;
}

TextLabel* sentence(const QString& text) {
    auto* label = new TextLabel(text, TextRole::body, ColorRole::text2);
    label->setAlignment(Qt::AlignHCenter);
    return label;
}

} // namespace

CaptureDeviceList::CaptureDeviceList(AppModel& model, MediaType type, const CaptureWords& words,
                                     QWidget* parent)
    : Column(parent),
      m_model(model),
      m_type(type),
      m_words(words),
      m_rows(new Panel(Panel::Kind::list)),
      m_empty(new Panel),
      m_denied(new Panel),
      m_unlisted(new Panel),
      m_reason(sentence({})),
      m_note(new TextLabel({}, TextRole::body, ColorRole::text2)),
      m_settings(new Button(words.openSettings)),
      m_lastStop(m_settings) {
    m_empty->add(sentence(words.noneFound));
    for (const std::string& detail : denial(type))
        m_denied->add(sentence(qt(detail)));
    m_denied->add(m_settings, Space::l, Qt::AlignHCenter);
    if (!canOpenPrivacySettings(model.platform().desktop(), type)) m_settings->hide();
    m_unlisted->add(m_reason);
    for (Panel* part : {m_rows, m_empty, m_denied, m_unlisted}) {
        add(part);
        part->hide();
    }
    m_note->setMaximumLines(2);
    add(m_note, Space::m);
    m_note->hide();
    connect(m_settings, &Button::clicked, this,
            [this] { openPrivacySettings(m_model.platform().desktop(), m_type); });
}

void CaptureDeviceList::clearRows() {
    m_rows->clear();
    m_lastStop = m_settings;
}

void CaptureDeviceList::addRow(QWidget* row) {
    m_rows->addRow(row, Space::block);
    // Rows are made late: without this Tab would reach them after the controls below.
    for (QWidget* child : row->findChildren<QWidget*>())
        if (child->focusPolicy() & Qt::TabFocus) {
            QWidget::setTabOrder(m_lastStop, child);
            m_lastStop = child;
        }
}

void CaptureDeviceList::appear() {
    m_open = true;
    m_allowed = m_listed = m_lost = false;
    tell({});
    withAccess([this] { lookAgain(); });
}

void CaptureDeviceList::disappear() {
    m_open = false;
    m_next.reset();
}

void CaptureDeviceList::withAccess(std::function<void()> action) {
    const auto answer = [this, action = std::move(action)](bool allowed) {
        if (!m_open) return;
        m_allowed = allowed;
        if (allowed && !canList()) return lookAgainSoon();
        write(!allowed);
        if (allowed) return action();
        showOnly(m_denied);
        lookAgainSoon();
        Q_EMIT accessDenied();
    };
    requestCaptureAccess(m_model.platform().captureDevices(), m_type, this, answer);
}

void CaptureDeviceList::write(bool denied) {
    const bool video = m_type == MediaType::video;
    if ((video ? m_model.state().cameraDenied : m_model.state().microphoneDenied) == denied) return;
    m_model.change(
        [=](SessionState& state) { (video ? state.cameraDenied : state.microphoneDenied) = denied; });
}

CaptureList CaptureDeviceList::listDevices() const {
    auto& platform = m_model.platform().captureDevices();
    return m_type == MediaType::video ? listCameras(platform) : listMicrophones(platform);
}

void CaptureDeviceList::list(std::vector<CaptureDevice> devices) {
    keep(devices, m_lost);
    m_listed = true;
    take(std::move(devices));
}

void CaptureDeviceList::keep(const std::vector<CaptureDevice>& devices, bool keepGone) {
    SessionState state = m_model.state();
    if (m_type == MediaType::video) {
        state.cameras = keepGone ? extended(state.cameras, devices) : relisted(state.cameras, devices);
        state.camerasListed = true;
    } else {
        state.microphones =
            keepGone ? extended(state.microphones, devices) : relisted(state.microphones, devices);
        state.microphonesListed = true;
    }
    if (state != m_model.state()) m_model.setState(std::move(state));
}

bool CaptureDeviceList::canList() {
    const CaptureList found = listDevices();
    if (!found.devices) couldntList(found.fault);
    return found.devices.has_value();
}

void CaptureDeviceList::couldntList(CaptureList::Fault fault) {
    m_reason->setText(fault == CaptureList::Fault::noDriver ? m_words.noDriver : m_words.noService);
    m_lost = true;
    if (!m_devices.empty()) {
        m_devices.clear();
        Q_EMIT devicesChanged();
    }
    showOnly(m_unlisted);
}

void CaptureDeviceList::tell(const QString& line) {
    m_note->setText(line);
    m_note->setVisible(!line.isEmpty() && !m_rows->isHidden());
}

void CaptureDeviceList::take(std::vector<CaptureDevice> devices) {
    m_lost = m_lost || devices.empty();
    if (devices != m_devices) {
        m_devices = std::move(devices);
        Q_EMIT devicesChanged();
    }
    showOnly(m_devices.empty() ? m_empty : m_rows);
}

void CaptureDeviceList::lookAgainSoon() {
    m_next = m_model.platform().scheduler().after(lookInterval, [this] { lookAgain(); });
}

void CaptureDeviceList::lookAgain() {
    lookAgainSoon();
    auto& platform = m_model.platform().captureDevices();
    const AuthorizationStatus status = platform.authorizationStatus(m_type);
    // A look on its own never brings up the system's question. Where access was given before, asking again
    // only lets the platform find its devices.
    if (status == AuthorizationStatus::notDetermined && m_allowed)
        return requestCaptureAccess(platform, m_type, this, [](bool) {});
    if (status != AuthorizationStatus::authorized) return;
    m_allowed = true;
    auto found = listDevices();
    if (!found.devices) return couldntList(found.fault);
    write(false);
    auto& devices = *found.devices;
    if (!m_listed) return list(std::move(devices));

    const auto isNew = [this](const CaptureDevice& device) {
        return std::ranges::count(m_devices, device.uniqueID, &CaptureDevice::uniqueID) == 0;
    };
    // After a loss devices may come back one after the other.
    const bool back = m_lost && std::ranges::any_of(devices, isNew);
    if (back) keep(devices, true);
    take(back || devices.empty() ? std::move(devices) : m_devices);
}

void CaptureDeviceList::showOnly(QWidget* part) {
    for (QWidget* each : std::initializer_list<QWidget*>{m_rows, m_empty, m_denied, m_unlisted})
        each->setVisible(each == part);
    if (part != m_rows) tell({});
}

} // namespace tessivo
