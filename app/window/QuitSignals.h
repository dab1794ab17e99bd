#pragma once

#include <QObject>

namespace tessivo {

/// Turns the system's requests to end (terminate, interrupt, hang up) into a signal on the event loop, where
/// the session can be stored. One of them at a time; main thread.
class QuitSignals final : public QObject {
    Q_OBJECT
public:
    explicit QuitSignals(QObject* parent = nullptr);
    ~QuitSignals() override;

Q_SIGNALS:
    void quitRequested();

private:
    int m_reading = -1;
};

} // namespace tessivo
