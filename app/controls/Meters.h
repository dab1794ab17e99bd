#pragma once

#include "app/look/Accessible.h"
#include "app/look/Theme.h"

#include <QWidget>

namespace tessivo {

/// How much is done, as a thin bar. The total may be 0, which shows an empty bar.
class ProgressBar final : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    explicit ProgressBar(QWidget* parent = nullptr);

    void setProgress(int value, int total);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QAccessible::Role spokenRole() const override { return QAccessible::ProgressBar; }
    QString spokenValue() const override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    int m_value = 0;
    int m_total = 0;
};

/// A sound level from 0 to 1 as a green bar; steps, never animates.
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
