#pragma once

#include <QWidget>

namespace tessivo {

/// A hairline across the room it is given, but for `left` and `right` at its ends, in logical pixels.
class Divider final : public QWidget {
    Q_OBJECT
public:
    explicit Divider(QWidget* parent = nullptr) : Divider(0, 0, parent) {}
    Divider(int left, int right, QWidget* parent = nullptr);
    QSize sizeHint() const override { return {1, 1}; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    int m_left, m_right;
};

} // namespace tessivo
