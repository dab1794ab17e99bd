#pragma once

#include "platform/StopToken.h"

#include <QMetaObject>
#include <QPointer>
#include <functional>
#include <future>
#include <memory>
#include <thread>
#include <type_traits>

namespace tessivo {

/// Work away from the main thread whose answer comes back to it. Both kinds call `done` on the thread of
/// `context`, and not at all once `context` is gone.
namespace Background {

/// Work on a thread of its own; letting go of it stops its token and waits for it.
class Stoppable final {
public:
    explicit Stoppable(std::function<void(const StopToken&)> work)
        : m_work(std::async(std::launch::async, std::move(work), m_stop.token())) {}
    ~Stoppable() { m_stop.requestStop(); }
    Stoppable(const Stoppable&) = delete;
    Stoppable& operator=(const Stoppable&) = delete;

private:
    StopSource m_stop;
    std::future<void> m_work; // joins the thread when it goes
};

/// Work that ends soon after its token is stopped.
template <class Work>
std::unique_ptr<Stoppable> stoppable(QObject* context, Work work,
                                     std::function<void(std::invoke_result_t<Work, StopToken>)> done) {
    return std::make_unique<Stoppable>(
        [context, work = std::move(work), done = std::move(done)](const StopToken& stop) {
            auto answer = std::make_shared<std::invoke_result_t<Work, StopToken>>(work(stop));
            // Joined by whoever owns both, so `context` still lives here.
            if (!stop.stopRequested())
                QMetaObject::invokeMethod(
                    context, [answer, done] { done(std::move(*answer)); }, Qt::QueuedConnection);
        });
}

/// Work that nobody can stop. It must own all it uses. `relay` outlives it through shared ownership.
template <class Work>
void detached(QObject* context, Work work, std::function<void(std::invoke_result_t<Work>)> done) {
    // The relay lives on the main thread and dies there; the context is looked at only there.
    auto* relay = new QObject;
    QPointer<QObject> guard(context);
    std::thread([relay, guard, work = std::move(work), done = std::move(done)]() mutable {
        auto answer = std::make_shared<std::invoke_result_t<Work>>(work());
        QMetaObject::invokeMethod(
            relay,
            [relay, guard, answer, done = std::move(done)] {
                if (guard) done(std::move(*answer));
                relay->deleteLater();
            },
            Qt::QueuedConnection);
    }).detach();
}

} // namespace Background
} // namespace tessivo
