#pragma once

#include "app/controls/ClickControl.h"
#include "app/look/Metrics.h"

#include <QWidget>

namespace tessivo {

class TextLabel;

/// A whole number in a sentence ("Ports on this Mac: 4") with a minus and a plus. Arrow keys step too. Read
/// as a spin box whose value is the number. (A QSpinBox changes under the wheel, offers a screen reader no
/// actions, and its left and right arrows move a cursor.)
class Stepper final : public QWidget, public AccessibleTraits, public FocusShape {
    Q_OBJECT
public:
    /// `format` holds "%lld" where the number stands; the label takes `labelWidth`.
    Stepper(const QString& format, int minimum, int maximum, int labelWidth, QWidget* parent = nullptr);

    int value() const { return m_value; }
    void setValue(int value);

    QAccessible::Role spokenRole() const override { return QAccessible::SpinBox; }
    QString spokenName() const override;
    QString spokenValue() const override { return QString::number(m_value); }
    QStringList spokenActions() const override;
    void actOn(const QString& action) override;
    QRectF focusShapeRect() const override;
    double focusShapeCorner() const override { return Corner::button; }

Q_SIGNALS:
    /// The person stepped to this value.
    void stepped(int value);

protected:
    void paintEvent(QPaintEvent*) override;
    void keyPressEvent(QKeyEvent*) override;

private:
    class Half;
    void step(int by);

    QString m_format;
    int m_minimum, m_maximum;
    int m_value = 0;
    TextLabel* m_label;
    Half* m_minus;
    Half* m_plus;
};

} // namespace tessivo
