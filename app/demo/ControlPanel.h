#pragma once

#include <QWidget>

class QComboBox;
class QScrollArea;

namespace tessivo {
class SimulatedControls;
}

namespace tessivo::demo {

class FeedServer;

/// The window "Simulated Mac": everything a person could do to the machine, and no part of the product.
class ControlPanel final : public QWidget {
    Q_OBJECT
public:
    ControlPanel(const QStringList& machines, FeedServer& server);

    /// Shows this machine's controls in the place of the last one's.
    void show(const QString& machine, SimulatedControls& controls);
    /// Lets go of the machine shown, before it goes.
    void letGo();

Q_SIGNALS:
    void chosen(const QString& machine);
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    FeedServer& m_server;
    QComboBox* m_machine;
    QScrollArea* m_area;
};

} // namespace tessivo::demo
