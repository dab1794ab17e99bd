#pragma once

#include "app/look/Accessible.h"
#include "app/look/FocusRing.h"
#include "app/look/Theme.h"

#include <QComboBox>

namespace tessivo {

/// A button that shows the choice made and opens a menu of all. Signals of QComboBox: `activated(int)` for a
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

    // Of a combo box of its own the bridge would tell the choice in place of the name.
    QAccessible::Role spokenRole() const override { return QAccessible::ComboBox; }
    QString spokenValue() const override { return currentText(); }
    QStringList spokenActions() const override { return {QAccessibleActionInterface::showMenuAction()}; }
    void actOn(const QString&) override { showPopup(); }
    QWidget* focusShapeWidget() override { return this; }
    QRectF focusShapeRect() const override { return rect(); }
    double focusShapeCorner() const override;

protected:
    void paintEvent(QPaintEvent*) override;
    void wheelEvent(QWheelEvent*) override;
    bool event(QEvent*) override;

private:
    int m_preferredWidth = 0;
};

} // namespace tessivo
