// A sound card for a PulseAudio daemon on a computer without one: an ALSA control plug-in with jacks and
// switches and a playback plug-in that keeps a real card's time. The daemon loads it beforehand, since two
// questions of its card module reach only the kernel. Each control is a file in the folder
// TESSIVO_STAND_IN_CARD holding 0 or 1.

#include <alsa/asoundlib.h>
#include <alsa/control_external.h>
#include <alsa/pcm_external.h>
#include <array>
#include <chrono>
#include <climits>
#include <cstring>
#include <fstream>
#include <string>
#include <sys/inotify.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace {

struct Control {
    const char* name;
    snd_ctl_elem_iface_t interface;
};

constexpr std::array<Control, 5> controls = {{{"Headphone Jack", SND_CTL_ELEM_IFACE_CARD},
                                              {"Line Out Jack", SND_CTL_ELEM_IFACE_CARD},
                                              {"Headphone Playback Switch", SND_CTL_ELEM_IFACE_MIXER},
                                              {"Line Out Playback Switch", SND_CTL_ELEM_IFACE_MIXER},
                                              {"Speaker Playback Switch", SND_CTL_ELEM_IFACE_MIXER}}};

struct Card {
    snd_ctl_ext_t plug{};
    std::string events; ///< read and not told yet
};

std::string folder() {
    return std::getenv("TESSIVO_STAND_IN_CARD");
}

std::string file(snd_ctl_ext_key_t key) {
    return folder() + "/" + controls[key].name;
}

int list(snd_ctl_ext_t*, unsigned int offset, snd_ctl_elem_id_t* id) {
    snd_ctl_elem_id_set_interface(id, controls[offset].interface);
    snd_ctl_elem_id_set_name(id, controls[offset].name);
    return 0;
}

snd_ctl_ext_key_t find(snd_ctl_ext_t*, const snd_ctl_elem_id_t* id) {
    for (std::size_t key = 0; key < controls.size(); ++key)
        if (std::string(snd_ctl_elem_id_get_name(id)) == controls[key].name) return key;
    return SND_CTL_EXT_KEY_NOT_FOUND;
}

int describe(snd_ctl_ext_t*, snd_ctl_ext_key_t key, int* type, unsigned int* access, unsigned int* count) {
    *type = SND_CTL_ELEM_TYPE_BOOLEAN;
    *access = controls[key].interface == SND_CTL_ELEM_IFACE_CARD ? SND_CTL_EXT_ACCESS_READ
                                                                 : SND_CTL_EXT_ACCESS_READWRITE;
    *count = 1;
    return 0;
}

int read(snd_ctl_ext_t*, snd_ctl_ext_key_t key, long* value) {
    *value = 0;
    std::ifstream(file(key)) >> *value;
    return 0;
}

int write(snd_ctl_ext_t* card, snd_ctl_ext_key_t key, long* value) {
    long before = 0;
    read(card, key, &before);
    if (before == *value) return 0;
    std::ofstream(file(key)) << *value;
    return 1;
}

/// One file that was written, as the control's event.
int event(snd_ctl_ext_t* plug, snd_ctl_elem_id_t* id, unsigned int* mask) {
    std::string& pending = static_cast<Card*>(plug->private_data)->events;
    if (pending.empty()) {
        char bytes[sizeof(inotify_event) + NAME_MAX + 1];
        const ssize_t size = ::read(plug->poll_fd, bytes, sizeof bytes);
        if (size <= 0) return -EAGAIN;
        pending.assign(bytes, std::size_t(size));
    }
    inotify_event written;
    std::memcpy(&written, pending.data(), sizeof written);
    const std::string name = pending.substr(sizeof written).c_str();
    pending.erase(0, sizeof written + written.len);
    for (const Control& control : controls)
        if (name == control.name) {
            snd_ctl_elem_id_set_interface(id, control.interface);
            snd_ctl_elem_id_set_name(id, control.name);
            *mask = SND_CTL_EVENT_MASK_VALUE;
            return 1;
        }
    return -EAGAIN;
}

void close(snd_ctl_ext_t* plug) {
    ::close(plug->poll_fd);
    delete static_cast<Card*>(plug->private_data);
}

const snd_ctl_ext_callback_t controlCalls = [] {
    snd_ctl_ext_callback_t calls{};
    calls.close = close;
    calls.elem_count = [](snd_ctl_ext_t*) { return int(controls.size()); };
    calls.elem_list = list;
    calls.find_elem = find;
    calls.get_attribute = describe;
    calls.read_integer = read;
    calls.write_integer = write;
    calls.read_event = event;
    calls.subscribe_events = [](snd_ctl_ext_t*, int) {};
    return calls;
}();

struct Playback {
    snd_pcm_ioplug_t plug{};
    std::chrono::steady_clock::time_point begun;
};

const snd_pcm_ioplug_callback_t playbackCalls = [] {
    snd_pcm_ioplug_callback_t calls{};
    calls.start = [](snd_pcm_ioplug_t* plug) {
        static_cast<Playback*>(plug->private_data)->begun = std::chrono::steady_clock::now();
        return 0;
    };
    calls.stop = [](snd_pcm_ioplug_t*) { return 0; };
    calls.pointer = [](snd_pcm_ioplug_t* plug) {
        const std::chrono::duration<double> played =
            std::chrono::steady_clock::now() - static_cast<Playback*>(plug->private_data)->begun;
        return snd_pcm_sframes_t(snd_pcm_uframes_t(played.count() * plug->rate) % plug->buffer_size);
    };
    calls.transfer = [](snd_pcm_ioplug_t*, const snd_pcm_channel_area_t*, snd_pcm_uframes_t,
                        snd_pcm_uframes_t size) { return snd_pcm_sframes_t(size); };
    calls.poll_revents = [](snd_pcm_ioplug_t* plug, pollfd* polled, unsigned int, unsigned short* events) {
        std::uint64_t ticks = 0;
        const bool ready =
            (polled->revents & POLLIN) && ::read(plug->poll_fd, &ticks, sizeof ticks) == sizeof ticks;
        *events = ready ? POLLOUT : 0;
        return 0;
    };
    calls.close = [](snd_pcm_ioplug_t* plug) {
        ::close(plug->poll_fd);
        delete static_cast<Playback*>(plug->private_data);
        return 0;
    };
    return calls;
}();

} // namespace

extern "C" {

int snd_card_get_index(const char*) {
    return 0;
}

int snd_pcm_info_get_card(const snd_pcm_info_t*) {
    return 0;
}

SND_CTL_PLUGIN_DEFINE_FUNC(standin) {
    (void)root, (void)conf;
    auto* card = new Card;
    snd_ctl_ext_t& plug = card->plug;
    plug.version = SND_CTL_EXT_VERSION;
    std::strcpy(plug.name, "Stand-in");
    plug.poll_fd = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    inotify_add_watch(plug.poll_fd, folder().c_str(), IN_CLOSE_WRITE);
    plug.callback = &controlCalls;
    plug.private_data = card;
    const int result = snd_ctl_ext_create(&plug, name, mode);
    *handlep = plug.handle;
    return result;
}
SND_CTL_PLUGIN_SYMBOL(standin);

SND_PCM_PLUGIN_DEFINE_FUNC(standin) {
    (void)root, (void)conf;
    auto* playback = new Playback;
    snd_pcm_ioplug_t& plug = playback->plug;
    plug.version = SND_PCM_IOPLUG_VERSION;
    plug.name = "Stand-in";
    plug.callback = &playbackCalls;
    plug.private_data = playback;
    plug.poll_fd = timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC);
    plug.poll_events = POLLIN;
    const itimerspec ticks{{0, 10'000'000}, {0, 10'000'000}};
    timerfd_settime(plug.poll_fd, 0, &ticks, nullptr);
    if (const int result = snd_pcm_ioplug_create(&plug, name, stream, mode); result < 0) return result;
    constexpr unsigned int access = SND_PCM_ACCESS_RW_INTERLEAVED, format = SND_PCM_FORMAT_FLOAT_LE;
    snd_pcm_ioplug_set_param_list(&plug, SND_PCM_IOPLUG_HW_ACCESS, 1, &access);
    snd_pcm_ioplug_set_param_list(&plug, SND_PCM_IOPLUG_HW_FORMAT, 1, &format);
    snd_pcm_ioplug_set_param_minmax(&plug, SND_PCM_IOPLUG_HW_CHANNELS, 2, 2);
    snd_pcm_ioplug_set_param_minmax(&plug, SND_PCM_IOPLUG_HW_RATE, 48'000, 48'000);
    *pcmp = plug.pcm;
    return 0;
}
SND_PCM_PLUGIN_SYMBOL(standin);
}
