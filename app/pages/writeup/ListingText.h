#pragma once

#include "app/look/FocusShape.h"
#include "app/look/Theme.h"

#include <QTextEdit>

namespace tessivo {

/// A listing to read and select: plain text in a scrolling box.
class ListingText final : public QTextEdit, public FocusShape {
    Q_OBJECT

public:
    explicit ListingText(const QString& name, QWidget* parent = nullptr);

    /// Plain text; nothing happens when it is the one shown.
    void setListing(const QString& text);

    QWidget* focusShapeWidget() override { return this; }
    QRectF focusShapeRect() const override { return rect(); }
    double focusShapeCorner() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tessivo
