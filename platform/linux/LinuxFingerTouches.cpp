#include "platform/linux/LinuxFingerTouches.h"

#include "platform/linux/Descriptor.h"
#include "platform/linux/TouchpadGestures.h"

#include <QFileSystemWatcher>
#include <QSocketNotifier>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <libevdev/libevdev.h>

namespace tessivo {
namespace {

struct FreeDevice {
    void operator()(libevdev* device) const { libevdev_free(device); }
};
using Device = std::unique_ptr<libevdev, FreeDevice>;

/// More than the kernel's tracking numbers of one device.
constexpr std::int64_t touchesOfOne = std::int64_t(1) << 32;

double span(const libevdev* device, unsigned axis) {
    return double(libevdev_get_abs_maximum(device, axis)) - libevdev_get_abs_minimum(device, axis);
}

/// Places fingers in slots, and is no touch screen.
bool isTouchpad(const libevdev* device) {
    return span(device, ABS_MT_POSITION_X) > 0 && span(device, ABS_MT_POSITION_Y) > 0 &&
           libevdev_has_event_code(device, EV_KEY, BTN_TOOL_FINGER) && libevdev_get_num_slots(device) > 0 &&
           !libevdev_has_property(device, INPUT_PROP_DIRECT);
}

/// How many fingers the device counts, also those that it can't place.
std::size_t countedFingers(const libevdev* device) {
    std::size_t fingers = 0;
    for (const unsigned tool :
         {BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP, BTN_TOOL_TRIPLETAP, BTN_TOOL_QUADTAP, BTN_TOOL_QUINTTAP}) {
        ++fingers;
        if (libevdev_get_event_value(device, EV_KEY, tool) != 0) return fingers;
    }
    return 0;
}

/// One position for each finger counted, its touch numbered from `firstTouch` on. One that the device can't
/// place stands at the last placed one; while none is placed, those counted only hover.
std::vector<FingerPosition> fingersOn(const libevdev* device, std::int64_t firstTouch) {
    std::vector<FingerPosition> fingers;
    for (unsigned slot = 0; slot < unsigned(libevdev_get_num_slots(device)); ++slot) {
        const auto value = [&](unsigned code) { return libevdev_get_slot_value(device, slot, code); };
        const auto fraction = [&](unsigned axis) {
            const double way = double(value(axis)) - libevdev_get_abs_minimum(device, axis);
            return std::clamp(way / span(device, axis), 0.0, 1.0);
        };
        if (const int touch = value(ABS_MT_TRACKING_ID); touch >= 0 && value(ABS_MT_DISTANCE) <= 0)
            fingers.push_back({fraction(ABS_MT_POSITION_X), fraction(ABS_MT_POSITION_Y), firstTouch + touch});
    }
    if (!fingers.empty())
        fingers.resize(std::max(fingers.size(), countedFingers(device)), FingerPosition(fingers.back()));
    return fingers;
}

} // namespace

/// One open event file.
class LinuxFingerTouches::Touchpad final {
public:
    /// Told of every report that the device ends, with the gesture in it.
    using Reported = std::function<void(std::optional<Gesture>)>;

    /// Its touches are numbered from `firstTouch` on.
    static std::unique_ptr<Touchpad> open(const std::filesystem::path& path, std::int64_t firstTouch,
                                          const Reported& reported) {
        Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
        libevdev* device = nullptr;
        if (file < 0 || libevdev_new_from_fd(file, &device) < 0) return nullptr;
        Device owned(device);
        if (!isTouchpad(device)) return nullptr;
        return std::unique_ptr<Touchpad>(
            new Touchpad(path, firstTouch, std::move(file), std::move(owned), reported));
    }

    const std::filesystem::path& path() const { return m_path; }
    bool isGone() const { return !m_notifier.isEnabled(); }
    /// Now on it; none once it is gone.
    const std::vector<FingerPosition>& fingers() const { return m_fingers; }

private:
    Touchpad(const std::filesystem::path& path, std::int64_t firstTouch, Descriptor file, Device device,
             const Reported& reported)
        : m_path(path),
          m_firstTouch(firstTouch),
          m_file(std::move(file)),
          m_device(std::move(device)),
          m_reported(reported),
          m_notifier(m_file, QSocketNotifier::Read) {
        QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { read(); });
    }

    void read() {
        // A handler may stop the touches, and with them this touchpad.
        const std::weak_ptr<bool> alive = m_alive;
        for (;;) {
            input_event event;
            const int status = libevdev_next_event(m_device.get(), LIBEVDEV_READ_FLAG_NORMAL, &event);
            if (status == LIBEVDEV_READ_STATUS_SYNC) {
                // Events were lost: the library asks the kernel for the present state.
                while (libevdev_next_event(m_device.get(), LIBEVDEV_READ_FLAG_SYNC, &event) ==
                       LIBEVDEV_READ_STATUS_SYNC) {
                }
                tell();
            } else if (status == LIBEVDEV_READ_STATUS_SUCCESS) {
                if (libevdev_event_is_code(&event, EV_SYN, SYN_REPORT)) tell();
            } else {
                if (status != -EAGAIN) end();
                return;
            }
            if (alive.expired()) return;
        }
    }

    void tell() {
        m_fingers = fingersOn(m_device.get(), m_firstTouch);
        // A copy: it may go while it runs.
        const Reported reported = m_reported;
        reported(m_gestures.handle(m_fingers));
    }

    /// Unplugged: reading would fail for ever, and its fingers are on it no more.
    void end() {
        m_notifier.setEnabled(false);
        m_fingers.clear();
        const Reported reported = m_reported;
        reported(std::nullopt);
    }

    std::filesystem::path m_path;
    std::int64_t m_firstTouch;
    Descriptor m_file;
    Device m_device;
    TouchpadGestures m_gestures;
    std::vector<FingerPosition> m_fingers;
    Reported m_reported;
    QSocketNotifier m_notifier;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>();
};

LinuxFingerTouches::LinuxFingerTouches(std::filesystem::path devices) : m_devices(std::move(devices)) {}

LinuxFingerTouches::~LinuxFingerTouches() = default;

void LinuxFingerTouches::start(QWindow*, Handlers handlers) {
    stop();
    m_handlers = std::move(handlers);
    m_watcher = std::make_unique<QFileSystemWatcher>(QStringList(QString::fromStdString(m_devices.string())));
    QObject::connect(m_watcher.get(), &QFileSystemWatcher::directoryChanged, m_watcher.get(),
                     [this] { lookForTouchpads(); });
    lookForTouchpads();
}

void LinuxFingerTouches::stop() {
    m_watcher.reset();
    m_touchpads.clear();
    m_handlers = {};
}

void LinuxFingerTouches::lookForTouchpads() {
    std::erase_if(m_touchpads, [](const auto& touchpad) { return touchpad->isGone(); });
    std::error_code error; // no such folder, or none that may be read: no touchpads
    for (std::filesystem::directory_iterator entry(m_devices, error), end; entry != end;
         entry.increment(error)) {
        const auto path = entry->path();
        const bool known = std::ranges::any_of(
            m_touchpads, [&path](const auto& touchpad) { return touchpad->path() == path; });
        if (known || !path.filename().string().starts_with("event")) continue;
        auto touchpad =
            Touchpad::open(path, m_nextTouch, [this](std::optional<Gesture> gesture) { tell(gesture); });
        if (!touchpad) continue;
        m_touchpads.push_back(std::move(touchpad));
        m_nextTouch += touchesOfOne;
    }
}

void LinuxFingerTouches::tell(std::optional<Gesture> gesture) {
    // Copies: the handlers may go while one of them runs.
    const Handlers handlers = m_handlers;
    std::vector<FingerPosition> fingers;
    for (const auto& touchpad : m_touchpads)
        std::ranges::copy(touchpad->fingers(), std::back_inserter(fingers));
    if (handlers.touches) handlers.touches(fingers);
    if (gesture && handlers.gesture) handlers.gesture(*gesture);
}

} // namespace tessivo
