#include "platform/qt/QtScheduler.h"

#include <QTimer>

namespace tessivo {

namespace {

class TimerHandle final : public Scheduled {
public:
    TimerHandle(std::chrono::milliseconds delay, std::function<void()> action) : m_timer(new QTimer) {
        m_timer->setSingleShot(true);
        // The timers that save power by running together may also run early.
        m_timer->setTimerType(Qt::PreciseTimer);
        QObject::connect(m_timer, &QTimer::timeout, m_timer, std::move(action));
        m_timer->start(delay);
    }
    ~TimerHandle() override {
        // Not deleted on the spot: the action itself may let go of this handle.
        m_timer->stop();
        m_timer->disconnect();
        m_timer->deleteLater();
    }

private:
    QTimer* m_timer;
};

} // namespace

Date QtScheduler::now() const {
    return Date::now();
}

std::unique_ptr<Scheduled> QtScheduler::after(std::chrono::milliseconds delay, std::function<void()> action) {
    return std::make_unique<TimerHandle>(delay, std::move(action));
}

} // namespace tessivo
