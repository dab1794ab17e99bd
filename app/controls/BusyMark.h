#pragma once

#include <QTimer>
#include <QWidget>

namespace tessivo {

/// A small ring with a part that goes round in steps while something works that nobody can hurry. The words
/// beside it say what; a screen reader passes it over.
class BusyMark final : public QWidget {
    Q_OBJECT
public:
    explicit BusyMark(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent*) override;
    void showEvent(QShowEvent*) override { m_steps.start(); }
    void hideEvent(QHideEvent*) override { m_steps.stop(); }

private:
    QTimer m_steps;
    int m_step = 0;
};

} // namespace tessivo
