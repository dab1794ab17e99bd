#pragma once

#include "app/look/Accessible.h"
#include "app/look/FocusShape.h"
#include "app/look/Metrics.h"

#include <QComboBox>

namespace tessivo {

/// A combo box that opens a menu of its choices, by Return too. (A QComboBox changes under the wheel, and on
/// Linux the bridge tells its choice in place of its name.) Signals of QComboBox: `activated(int)` for a
/// choice by the person.
class Picker final : public QComboBox, public AccessibleTraits, public FocusShape {
    Q_OBJECT
public:
    explicit Picker(const QString& name, const QStringList& choices = {}, QWidget* parent = nullptr);

    /// Replaces the choices only where they differ, keeping the chosen index if it still exists.
    void setChoices(const QStringList& choices);
    void setPreferredWidth(int width);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void showPopup() override;

    QAccessible::Role spokenRole() const override { return QAccessible::ComboBox; }
    QString spokenValue() const override { return currentText(); }
    QStringList spokenActions() const override { return {QAccessibleActionInterface::showMenuAction()}; }
    void actOn(const QString&) override { showPopup(); }
    double focusShapeCorner() const override { return Corner::button; }

protected:
    void wheelEvent(QWheelEvent*) override;
    bool event(QEvent*) override;

private:
    int m_preferredWidth = 0;
};

} // namespace tessivo
