#include "app/pages/sound/CaptureDeviceList.h"

#include "app/controls/Button.h"
#include "app/controls/TextLabel.h"
#include "app/readers/CaptureAccess.h"
#include "kit/rules/Rules.h"

namespace tessivo {

namespace {

constexpr auto lookInterval = std::chrono::seconds(1);

/// What the rule says of access that is off, whatever the session holds besides.
std::vector<std::string> denial(MediaType type) {
    const auto result = type == MediaType::video ? Rules::cameras({}, false, true, std::nullopt)
                                                 : Rules::microphones({}, false, true, std::nullopt);
    return result.details;
}

TextLabel* sentence(const QString& text) {
    auto* label = new TextLabel(text, TextRole::body, ColorRole::text2);
    label->setAlignment(Qt::AlignHCenter);
    return label;
}

} // namespace

CaptureDeviceList::CaptureDeviceList(AppModel& model, MediaType type, const QString& openSettings,
                                     const QString& noneFound, QWidget* parent)
    : Column(parent),
      m_model(model),
      m_type(type),
      m_rows(new Panel(Panel::Kind::list)),
      m_empty(new Panel),
      m_denied(new Panel),
      m_settings(new Button(openSettings)),
      m_lastStop(m_settings) {
    m_empty->add(sentence(noneFound));
    for (const std::string& detail : denial(type))
        m_denied->add(sentence(QString::fromStdString(detail)));
    m_denied->add(m_settings, Space::l, Qt::AlignHCenter);
    for (Panel* part : {m_rows, m_empty, m_denied}) {
        add(part);
        part->hide();
    }
    connect(m_settings, &Button::clicked, this,
            [this] { openPrivacySettings(m_model.platform().desktop(), m_type); });
}

void CaptureDeviceList::clearRows() {
    m_rows->clear();
    m_lastStop = m_settings;
}

void CaptureDeviceList::addRow(QWidget* row) {
    m_rows->addRow(row, Space::block);
    // What is made late would else come last, after the controls below the rows.
    for (QWidget* child : row->findChildren<QWidget*>())
        if (child->focusPolicy() & Qt::TabFocus) {
            QWidget::setTabOrder(m_lastStop, child);
            m_lastStop = child;
        }
}

void CaptureDeviceList::appear() {
    m_open = true;
    withAccess([this] { list(); });
}

void CaptureDeviceList::disappear() {
    m_open = false;
    m_next.reset();
}

void CaptureDeviceList::withAccess(std::function<void()> action) {
    const auto answer = [this, action = std::move(action)](bool allowed) {
        if (!m_open) return;
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

void CaptureDeviceList::list() {
    const bool video = m_type == MediaType::video;
    auto& platform = m_model.platform().captureDevices();
    auto devices = video ? listCameras(platform) : listMicrophones(platform);
    SessionState state = m_model.state();
    if (video) {
        state.cameras = relisted(state.cameras, devices);
        state.camerasListed = true;
    } else {
        state.microphones = relisted(state.microphones, devices);
        state.microphonesListed = true;
    }
    if (state != m_model.state()) m_model.setState(std::move(state));
    if (devices != m_devices) {
        m_devices = std::move(devices);
        Q_EMIT devicesChanged();
    }
    showOnly(m_devices.empty() ? m_empty : m_rows);
    if (m_devices.empty())
        lookAgainSoon();
    else
        m_next.reset();
}

void CaptureDeviceList::lookAgainSoon() {
    m_next = m_model.platform().scheduler().after(lookInterval, [this] { lookAgain(); });
}

void CaptureDeviceList::lookAgain() {
    // Only what is known already: a look by itself never brings up the system's question.
    if (m_model.platform().captureDevices().authorizationStatus(m_type) != AuthorizationStatus::authorized)
        return lookAgainSoon();
    write(false);
    list();
}

void CaptureDeviceList::showOnly(QWidget* part) {
    for (QWidget* each : std::initializer_list<QWidget*>{m_rows, m_empty, m_denied})
        each->setVisible(each == part);
}

} // namespace tessivo
