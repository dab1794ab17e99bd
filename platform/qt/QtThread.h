#pragma once

#include <QObject>
#include <functional>
#include <mutex>

class QThread;

namespace tessivo {

/// A thread with an event loop, for what of Qt must live on one away from the main thread. It begins with the
/// first piece of work. Any thread, but made and let go on the main one while the application object lives.
class QtThread final {
public:
    explicit QtThread(QString name) : m_name(std::move(name)) {}
    QtThread(const QtThread&) = delete;
    QtThread& operator=(const QtThread&) = delete;

    /// Work runs in the order of the calls; what comes after `end` is dropped. `owner` lives on the thread:
    /// what is made as its child goes with it at the end.
    void post(std::function<void(QObject& owner)> work);
    /// Lets the work given so far run, then ends the thread. A thread whose device hangs in the system is
    /// left behind after a moment.
    void end();

private:
    const QString m_name;
    std::mutex m_mutex; ///< over the fields below
    QThread* m_thread = nullptr;
    QObject* m_owner = nullptr;
    bool m_ended = false;
};

} // namespace tessivo
