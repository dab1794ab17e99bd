#pragma once

#include "platform/linux/PulseDevices.h"
#include "platform/linux/RefusedPorts.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <pulse/pulseaudio.h>
#include <thread>

namespace tessivo {

/// Someone with a stream on the server. All calls come on the server's thread.
class PulseClient {
public:
    virtual ~PulseClient() = default;

    virtual void devicesChanged(pa_context*, const PulseSnapshot&) {}
    /// The connection is lost and its streams with it: let go of them now.
    virtual void disconnected() = 0;
    /// The program lets go of the server: undo what must not stay. True when nothing is left to undo; asked
    /// again until then, for a short time.
    virtual bool finish() { return true; }
};

/// The connection to a sound server, on a thread of its own that alone touches the client library. It
/// keeps a snapshot of the devices, connects anew when a server dies and comes back, and never makes a
/// caller wait. The library's own threaded loop would: its lock is held while the library starts a server.
/// Any thread, but made and let go on the main one.
class PulseServer final {
public:
    /// How long after a failed attempt the next one follows.
    static constexpr std::chrono::milliseconds retryInterval{500};
    /// How long the end waits for clients that have something to undo.
    static constexpr std::chrono::milliseconds finishTime{500};

    /// The address as the client library takes it ("unix:/run/..."); empty for the user's own server.
    explicit PulseServer(std::string address = {});
    ~PulseServer();
    PulseServer(const PulseServer&) = delete;
    PulseServer& operator=(const PulseServer&) = delete;

    /// Never null; without a server its lists are empty.
    std::shared_ptr<const PulseSnapshot> snapshot() const;

    /// Work for the server's thread; dropped when the server object goes first. The context is null
    /// while there is no connection, and lasts for the call alone.
    using Work = std::function<void(pa_context*, const PulseSnapshot&)>;
    void post(Work work);
    /// Calls once, on the server's thread, as soon as the devices are known or known not to be there.
    void whenSettled(std::function<void()> action);
    /// The same for a caller that may wait, such as a support tool. False when the time is over.
    bool waitUntilSettled(std::chrono::milliseconds time);
    /// The client hears of changes for as long as it lives.
    void addClient(std::weak_ptr<PulseClient> client);
    /// The same, and the client lives as long as this object.
    void keepClient(std::shared_ptr<PulseClient> client);
    /// From now on the port is listed as refused, until its plug is pulled or somebody makes it the active
    /// one. The server's thread alone.
    void refuse(const std::string& sink, const std::string& port);
    /// What times out on the server's thread. That thread alone.
    const pa_mainloop_api& loop() const { return *pa_mainloop_get_api(m_loop); }

private:
    enum class Spawning { allowed, refused };

    void run();
    void connect(Spawning spawning);
    void disconnect(PulseSnapshot::Server why);
    void stateChanged();
    void refresh();
    void publish(PulseSnapshot snapshot);
    void runPosted();
    bool isOver();
    void tellClients(const std::function<void(PulseClient&)>& action);
    std::uint32_t stableID(const std::string& name);
    bool connected() const;

    template <class Info>
    static void listed(pa_context*, const Info* info, int end, void* self);
    void add(const pa_sink_info& info);
    void add(const pa_source_info& info);
    void listEnded(const pa_sink_info*) {}
    void listEnded(const pa_source_info*);

    const std::string m_address;
    pa_mainloop* m_loop = nullptr;

    mutable std::mutex m_mutex; ///< over the fields up to the blank line
    std::condition_variable m_settledChanged;
    std::shared_ptr<const PulseSnapshot> m_snapshot;
    std::deque<Work> m_posted;
    bool m_quit = false;

    // The server's thread alone.
    pa_context* m_context = nullptr;
    std::optional<std::chrono::steady_clock::time_point> m_nextAttempt;
    std::optional<PulseSnapshot::Server> m_lost; ///< set by a callback, acted on outside it
    PulseSnapshot m_listing;
    bool m_refreshing = false;
    bool m_dirty = false;
    std::optional<std::chrono::steady_clock::time_point> m_finishBy; ///< once the end has come
    std::vector<std::weak_ptr<PulseClient>> m_clients;
    std::vector<std::shared_ptr<PulseClient>> m_kept;
    RefusedPorts m_refused;
    std::vector<std::function<void()>> m_waiting;
    std::map<std::string, std::uint32_t> m_ids;

    std::thread m_thread;
};

} // namespace tessivo
