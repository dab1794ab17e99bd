#include "platform/linux/LinuxFingerTouches.h"

#include "platform/linux/Descriptor.h"
#include "platform/linux/TouchpadDecoder.h"
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

/// Places fingers in slots, and is no touch screen.
bool isTouchpad(const libevdev* device) {
    return libevdev_has_event_code(device, EV_ABS, ABS_MT_POSITION_X) &&
           libevdev_has_event_code(device, EV_ABS, ABS_MT_POSITION_Y) &&
           libevdev_has_event_code(device, EV_KEY, BTN_TOOL_FINGER) && libevdev_get_num_slots(device) > 0 &&
           !libevdev_has_property(device, INPUT_PROP_DIRECT);
}

TouchpadDecoder::Range range(const libevdev* device, unsigned axis) {
    return {libevdev_get_abs_minimum(device, axis), libevdev_get_abs_maximum(device, axis)};
}

int countedFingers(const libevdev* device) {
    int fingers = 0;
    for (const unsigned tool :
         {BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP, BTN_TOOL_TRIPLETAP, BTN_TOOL_QUADTAP, BTN_TOOL_QUINTTAP}) {
        ++fingers;
        if (libevdev_get_event_value(device, EV_KEY, tool) != 0) return fingers;
    }
    return 0;
}

std::vector<TouchpadDecoder::Slot> slotsOf(const libevdev* device) {
    std::vector<TouchpadDecoder::Slot> state(std::size_t(libevdev_get_num_slots(device)));
    for (unsigned slot = 0; slot < state.size(); ++slot) {
        state[slot].trackingID = libevdev_get_slot_value(device, slot, ABS_MT_TRACKING_ID);
        state[slot].x = libevdev_get_slot_value(device, slot, ABS_MT_POSITION_X);
        state[slot].y = libevdev_get_slot_value(device, slot, ABS_MT_POSITION_Y);
        state[slot].distance = libevdev_get_slot_value(device, slot, ABS_MT_DISTANCE);
    }
    return state;
}

} // namespace

/// One open event file.
class LinuxFingerTouches::Touchpad final {
public:
    static std::unique_ptr<Touchpad> open(const std::filesystem::path& path, const Handlers& handlers) {
        Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
        libevdev* device = nullptr;
        if (file < 0 || libevdev_new_from_fd(file, &device) < 0) return nullptr;
        Device owned(device);
        if (!isTouchpad(device)) return nullptr;
        return std::unique_ptr<Touchpad>(new Touchpad(path, std::move(file), std::move(owned), handlers));
    }

    const std::filesystem::path& path() const { return m_path; }
    bool isGone() const { return !m_notifier.isEnabled(); }

private:
    Touchpad(const std::filesystem::path& path, Descriptor file, Device device, const Handlers& handlers)
        : m_path(path),
          m_file(std::move(file)),
          m_device(std::move(device)),
          m_decoder(range(m_device.get(), ABS_MT_POSITION_X), range(m_device.get(), ABS_MT_POSITION_Y),
                    std::size_t(libevdev_get_num_slots(m_device.get()))),
          m_handlers(handlers),
          m_notifier(m_file, QSocketNotifier::Read) {
        takeState();
        QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { read(); });
    }

    void read() {
        // A handler may stop the touches, and with them this touchpad.
        const std::weak_ptr<bool> alive = m_alive;
        for (;;) {
            input_event event;
            const int status = libevdev_next_event(m_device.get(), LIBEVDEV_READ_FLAG_NORMAL, &event);
            if (status == LIBEVDEV_READ_STATUS_SYNC) {
                catchUp();
                tell();
            } else if (status == LIBEVDEV_READ_STATUS_SUCCESS) {
                if (m_decoder.handle(event)) tell();
            } else {
                // Unplugged: reading would fail for ever.
                if (status != -EAGAIN) m_notifier.setEnabled(false);
                return;
            }
            if (alive.expired()) return;
        }
    }

    /// The library lost events and asks the kernel for the present state.
    void catchUp() {
        input_event event;
        while (libevdev_next_event(m_device.get(), LIBEVDEV_READ_FLAG_SYNC, &event) ==
               LIBEVDEV_READ_STATUS_SYNC) {
        }
        takeState();
    }

    void takeState() {
        m_decoder.resync(slotsOf(m_device.get()), std::size_t(libevdev_get_current_slot(m_device.get())),
                         countedFingers(m_device.get()));
    }

    void tell() {
        // Copies: the handlers may go while one of them runs.
        const Handlers handlers = m_handlers;
        const auto fingers = m_decoder.fingers();
        const auto word = m_gestures.handle(fingers);
        if (handlers.touches) handlers.touches(fingers);
        if (word && handlers.gesture) handlers.gesture(*word);
    }

    std::filesystem::path m_path;
    Descriptor m_file;
    Device m_device;
    TouchpadDecoder m_decoder;
    TouchpadGestures m_gestures;
    Handlers m_handlers;
    QSocketNotifier m_notifier;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>();
};

LinuxFingerTouches::LinuxFingerTouches(std::filesystem::path devices) : m_devices(std::move(devices)) {}

LinuxFingerTouches::~LinuxFingerTouches() = default;

void LinuxFingerTouches::start(Handlers handlers) {
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
        if (auto touchpad = Touchpad::open(path, m_handlers)) m_touchpads.push_back(std::move(touchpad));
    }
}

} // namespace tessivo
