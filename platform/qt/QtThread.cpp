#include "platform/qt/QtThread.h"

#include <QThread>
#include <utility>

namespace tessivo {
namespace {

constexpr unsigned long patience = 2000; ///< in ms, for work that still runs at the end

} // namespace

void QtThread::post(std::function<void(QObject&)> work) {
    const std::lock_guard lock(m_mutex);
    if (m_ended) return;
    if (!m_thread) {
        m_thread = new QThread;
        m_thread->setObjectName(m_name);
        m_owner = new QObject;
        m_owner->moveToThread(m_thread);
        m_thread->start();
    }
    QMetaObject::invokeMethod(
        m_owner, [owner = m_owner, work = std::move(work)] { work(*owner); }, Qt::QueuedConnection);
}

void QtThread::end() {
    QThread* thread = nullptr;
    {
        const std::lock_guard lock(m_mutex);
        m_ended = true;
        thread = std::exchange(m_thread, nullptr);
    }
    if (!thread) return;
    // The thread ends itself: told from outside, it might do so before the work that waits.
    const auto last = [owner = m_owner, thread] {
        const auto children = owner->children();
        qDeleteAll(children);
        owner->deleteLater();
        thread->quit();
    };
    QMetaObject::invokeMethod(m_owner, last, Qt::QueuedConnection);
    if (thread->wait(patience)) delete thread;
}

} // namespace tessivo
