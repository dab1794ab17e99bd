#include "platform/linux/PulseServer.h"

#include "platform/AudioObjects.h"

#include <utility>

namespace tessivo {
namespace {

std::string property(const pa_proplist* list, const char* key) {
    const char* value = pa_proplist_gets(list, key);
    return value ? value : "";
}

std::optional<std::string> optionalText(const char* text) {
    return text ? std::optional<std::string>(text) : std::nullopt;
}

PulseAvailability availability(int value) {
    if (value == PA_PORT_AVAILABLE_YES) return PulseAvailability::yes;
    return value == PA_PORT_AVAILABLE_NO ? PulseAvailability::no : PulseAvailability::unknown;
}

template <class Info>
std::vector<PulsePort> ports(const Info& info) {
    std::vector<PulsePort> list;
    for (std::uint32_t i = 0; i < info.n_ports; ++i) {
        const auto& port = *info.ports[i];
        list.push_back({.name = port.name ? port.name : "",
                        .description = port.description ? port.description : "",
                        .type = port.type,
                        .available = availability(port.available)});
    }
    return list;
}

} // namespace

PulseServer::PulseServer(std::string address)
    : m_address(std::move(address)),
      m_loop(pa_mainloop_new()),
      m_snapshot(std::make_shared<PulseSnapshot>()),
      m_thread([this] { run(); }) {}

PulseServer::~PulseServer() {
    {
        const std::lock_guard lock(m_mutex);
        m_quit = true;
    }
    pa_mainloop_wakeup(m_loop);
    m_thread.join();
    pa_mainloop_free(m_loop);
}

std::shared_ptr<const PulseSnapshot> PulseServer::snapshot() const {
    const std::lock_guard lock(m_mutex);
    return m_snapshot;
}

void PulseServer::post(Work work) {
    {
        const std::lock_guard lock(m_mutex);
        m_posted.push_back(std::move(work));
    }
    pa_mainloop_wakeup(m_loop);
}

void PulseServer::whenSettled(std::function<void()> action) {
    post([this, action = std::move(action)](pa_context*, const PulseSnapshot& devices) {
        if (devices.server == PulseSnapshot::Server::connecting)
            m_waiting.push_back(action);
        else
            action();
    });
}

bool PulseServer::waitUntilSettled(std::chrono::milliseconds time) {
    std::unique_lock lock(m_mutex);
    return m_settledChanged.wait_for(
        lock, time, [this] { return m_snapshot->server != PulseSnapshot::Server::connecting; });
}

void PulseServer::addClient(std::weak_ptr<PulseClient> client) {
    post([this, client = std::move(client)](pa_context*, const PulseSnapshot&) {
        std::erase_if(m_clients, [](const auto& old) { return old.expired(); });
        m_clients.push_back(client);
    });
}

void PulseServer::keepClient(std::shared_ptr<PulseClient> client) {
    post([this, client = std::move(client)](pa_context* context, const PulseSnapshot& devices) {
        m_kept.push_back(client);
        m_clients.push_back(client);
        if (context) client->devicesChanged(context, devices);
    });
}

void PulseServer::refuse(const std::string& sink, const std::string& port) {
    m_refused.add(sink, port);
    PulseSnapshot devices = *snapshot();
    for (PulseSink& listed : devices.sinks)
        m_refused.mark(listed);
    publish(std::move(devices));
}

void PulseServer::run() {
    using Clock = std::chrono::steady_clock;
    pthread_setname_np(pthread_self(), "Tessivo.sound");
    connect(Spawning::allowed);
    for (;;) {
        int wait = -1;
        if (const auto next = m_finishBy ? m_finishBy : m_nextAttempt) {
            const auto left = std::chrono::duration_cast<std::chrono::microseconds>(*next - Clock::now());
            wait = int(std::max<std::chrono::microseconds::rep>(0, left.count()));
        }
        if (pa_mainloop_prepare(m_loop, wait) < 0 || pa_mainloop_poll(m_loop) < 0 ||
            pa_mainloop_dispatch(m_loop) < 0)
            break;
        if (m_lost) disconnect(*m_lost);
        runPosted();
        if (isOver()) break;
        // A server that went away isn't started from here: whoever ended it had a reason.
        if (m_nextAttempt && Clock::now() >= *m_nextAttempt) connect(Spawning::refused);
    }
    disconnect(PulseSnapshot::Server::absent);
}

void PulseServer::connect(Spawning spawning) {
    m_nextAttempt.reset();
    m_context = pa_context_new(pa_mainloop_get_api(m_loop), "Tessivo");
    pa_context_set_state_callback(
        m_context, [](pa_context*, void* self) { static_cast<PulseServer*>(self)->stateChanged(); }, this);
    pa_context_set_subscribe_callback(
        m_context,
        [](pa_context*, pa_subscription_event_type_t, std::uint32_t, void* self) {
            static_cast<PulseServer*>(self)->refresh();
        },
        this);
    const bool spawn = spawning == Spawning::allowed && m_address.empty();
    if (pa_context_connect(m_context, m_address.empty() ? nullptr : m_address.c_str(),
                           spawn ? PA_CONTEXT_NOFLAGS : PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0 &&
        !m_lost)
        m_lost = PulseSnapshot::Server::absent;
    if (m_lost) disconnect(*m_lost);
}

void PulseServer::stateChanged() {
    switch (pa_context_get_state(m_context)) {
    case PA_CONTEXT_READY:
        if (pa_operation* subscribed = pa_context_subscribe(
                m_context,
                pa_subscription_mask_t(PA_SUBSCRIPTION_MASK_SINK | PA_SUBSCRIPTION_MASK_SOURCE |
                                       PA_SUBSCRIPTION_MASK_SERVER | PA_SUBSCRIPTION_MASK_CARD),
                nullptr, nullptr))
            pa_operation_unref(subscribed);
        refresh();
        break;
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED: {
        const int error = pa_context_errno(m_context);
        m_lost = error == PA_ERR_ACCESS || error == PA_ERR_AUTHKEY ? PulseSnapshot::Server::refused
                                                                   : PulseSnapshot::Server::absent;
        break;
    }
    default:
        break;
    }
}

void PulseServer::disconnect(PulseSnapshot::Server why) {
    m_lost.reset();
    tellClients([](PulseClient& client) { client.disconnected(); });
    if (m_context) {
        pa_context_set_state_callback(m_context, nullptr, nullptr);
        pa_context_set_subscribe_callback(m_context, nullptr, nullptr);
        pa_context_disconnect(m_context);
        pa_context_unref(m_context);
        m_context = nullptr;
    }
    m_refreshing = m_dirty = false;
    m_refused = {};
    m_nextAttempt = std::chrono::steady_clock::now() + retryInterval;
    publish({.server = why});
}

bool PulseServer::connected() const {
    return m_context && pa_context_get_state(m_context) == PA_CONTEXT_READY;
}

void PulseServer::refresh() {
    m_dirty = true;
    if (m_refreshing || !connected()) return;
    m_refreshing = true;
    m_dirty = false;
    m_listing = {.server = PulseSnapshot::Server::connected};
    // The server answers in the order it was asked, so the end of the last list ends the whole.
    pa_operation* operations[] = {
        pa_context_get_server_info(
            m_context,
            [](pa_context*, const pa_server_info* info, void* self) {
                if (info && info->default_sink_name)
                    static_cast<PulseServer*>(self)->m_listing.defaultSink = info->default_sink_name;
            },
            this),
        pa_context_get_sink_info_list(m_context, &PulseServer::listed<pa_sink_info>, this),
        pa_context_get_source_info_list(m_context, &PulseServer::listed<pa_source_info>, this)};
    for (pa_operation* operation : operations)
        if (operation) pa_operation_unref(operation);
}

template <class Info>
void PulseServer::listed(pa_context*, const Info* info, int end, void* data) {
    auto* self = static_cast<PulseServer*>(data);
    if (end)
        self->listEnded(info);
    else if (info && info->name)
        self->add(*info);
}

void PulseServer::add(const pa_sink_info& info) {
    PulseSink sink{.id = stableID(info.name),
                   .name = info.name,
                   .description = optionalText(info.description),
                   .bus = property(info.proplist, PA_PROP_DEVICE_BUS),
                   .formFactor = property(info.proplist, PA_PROP_DEVICE_FORM_FACTOR),
                   .systemPath = property(info.proplist, "sysfs.path"),
                   .sampleRate = info.sample_spec.rate,
                   .channelCount = info.sample_spec.channels,
                   .ports = ports(info)};
    sink.hasFrontPair = pa_channel_map_has_position(&info.channel_map, PA_CHANNEL_POSITION_FRONT_LEFT) &&
                        pa_channel_map_has_position(&info.channel_map, PA_CHANNEL_POSITION_FRONT_RIGHT);
    if (info.active_port && info.active_port->name) sink.activePort = info.active_port->name;
    for (PulsePort& port : sink.ports)
        if (port.isJack()) port.id = stableID(sink.name + '\n' + port.name);
    m_refused.mark(sink);
    m_listing.sinks.push_back(std::move(sink));
}

void PulseServer::add(const pa_source_info& info) {
    // Servers differ in how they say that a source is of a sound card or a headset.
    const bool hardware = (info.flags & PA_SOURCE_HARDWARE) ||
                          property(info.proplist, PA_PROP_DEVICE_CLASS) == "sound" ||
                          !property(info.proplist, PA_PROP_DEVICE_API).empty();
    m_listing.sources.push_back({.name = info.name,
                                 .description = optionalText(info.description),
                                 .monitorsSink = info.monitor_of_sink != PA_INVALID_INDEX,
                                 .isHardware = hardware,
                                 .sampleRate = info.sample_spec.rate,
                                 .channelCount = info.sample_spec.channels,
                                 .ports = ports(info)});
}

void PulseServer::listEnded(const pa_source_info*) {
    m_refreshing = false;
    publish(std::exchange(m_listing, {}));
    if (m_dirty) refresh();
}

void PulseServer::publish(PulseSnapshot snapshot) {
    auto shared = std::make_shared<const PulseSnapshot>(std::move(snapshot));
    {
        const std::lock_guard lock(m_mutex);
        m_snapshot = shared;
    }
    m_settledChanged.notify_all();
    for (const auto& action : std::exchange(m_waiting, {}))
        action();
    if (connected()) tellClients([&](PulseClient& client) { client.devicesChanged(m_context, *shared); });
}

void PulseServer::runPosted() {
    std::deque<Work> posted;
    {
        const std::lock_guard lock(m_mutex);
        posted.swap(m_posted);
    }
    for (const Work& work : posted)
        work(connected() ? m_context : nullptr, *snapshot());
}

bool PulseServer::isOver() {
    {
        const std::lock_guard lock(m_mutex);
        if (!m_quit) return false;
    }
    if (!m_finishBy) m_finishBy = std::chrono::steady_clock::now() + finishTime;
    bool finished = true;
    if (connected()) tellClients([&](PulseClient& client) { finished = client.finish() && finished; });
    return finished || std::chrono::steady_clock::now() >= *m_finishBy;
}

void PulseServer::tellClients(const std::function<void(PulseClient&)>& action) {
    for (const auto& client : std::vector(m_clients))
        if (const auto alive = client.lock()) action(*alive);
}

std::uint32_t PulseServer::stableID(const std::string& name) {
    const auto next = AudioObjects::systemObject + 1 + std::uint32_t(m_ids.size());
    return m_ids.try_emplace(name, next).first->second;
}

} // namespace tessivo
