#pragma once

#include "app/controls/ClickControl.h"

namespace tessivo {

/// A square that is ticked or not, with an optional text that wraps, which a QCheckBox's doesn't. Signal:
/// `toggled(bool)` for any change, `clicked(bool)` for one made by the person.
class Checkbox final : public ClickControl {
    Q_OBJECT
public:
    explicit Checkbox(const QString& text = {}, QWidget* parent = nullptr);

    bool hasHeightForWidth() const override { return !text().isEmpty(); }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    QAccessible::Role spokenRole() const override { return QAccessible::CheckBox; }
    QRectF focusShapeRect() const override;

protected:
    void paintEvent(QPaintEvent*) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
};

} // namespace tessivo
