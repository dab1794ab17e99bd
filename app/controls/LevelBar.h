#pragma once

#include "app/look/Accessible.h"

#include <QWidget>

namespace tessivo {

/// A sound level from 0 to 1 as a green bar; steps, never animates. Read with its value in words, where a
/// QProgressBar's is a bare number.
class LevelBar final : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    explicit LevelBar(QWidget* parent = nullptr);

    double level() const { return m_level; }
    /// `spoken` is the value for a screen reader: "-23 decibels" or "not listening".
    void setLevel(double level, const QString& spoken);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QAccessible::Role spokenRole() const override { return QAccessible::Indicator; }
    QString spokenValue() const override { return m_spoken; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    double m_level = 0;
    QString m_spoken;
};

} // namespace tessivo
