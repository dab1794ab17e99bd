#pragma once

#include <QWidget>

namespace tessivo::pagetest {

/// Every control in every state on one sheet, to be looked at.
class ControlsSheet final : public QWidget {
    Q_OBJECT
public:
    explicit ControlsSheet(QWidget* parent = nullptr);
    /// Draws the rings of the controls that stand for the focus.
    void showRings();

private:
    QList<QWidget*> m_focused;
};

} // namespace tessivo::pagetest
