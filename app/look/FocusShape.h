#pragma once

#include <QRectF>
#include <QWidget>

namespace tessivo {

/// The shape around which the style draws a widget's focus ring. Widgets that don't derive from it get none.
class FocusShape {
public:
    virtual ~FocusShape() = default;
    /// The widget that the ring surrounds; null for one that shows the focus inside its edge.
    virtual QWidget* focusShapeWidget() { return dynamic_cast<QWidget*>(this); }
    /// The part of that widget, in its own coordinates.
    virtual QRectF focusShapeRect() const { return dynamic_cast<const QWidget&>(*this).rect(); }
    virtual double focusShapeCorner() const = 0;
};

} // namespace tessivo
