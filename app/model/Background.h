#pragma once

#include <QMetaObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <stop_token>
#include <thread>
#include <type_traits>

namespace tessivo {

/// Work away from the main thread whose answer comes back to it. Both kinds call `done` on the thread of
/// `context`, and not at all once `context` is gone.
namespace Background {

/// Work that ends soon after its token is stopped: letting go of the thread stops and joins it.
template <class Work>
std::jthread stoppable(QObject* context, Work work,
                       std::function<void(std::invoke_result_t<Work, std::stop_token>)> done) {
    return std::jthread(
        [context, work = std::move(work), done = std::move(done)](std::stop_token stop) mutable {
            auto answer = std::make_shared<std::invoke_result_t<Work, std::stop_token>>(work(stop));
            // Joined by whoever owns both, so `context` still lives here.
            if (!stop.stop_requested())
                QMetaObject::invokeMethod(
                    context, [answer, done = std::move(done)] { done(std::move(*answer)); },
                    Qt::QueuedConnection);
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
