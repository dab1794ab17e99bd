#pragma once

#include "app/controls/ClickControl.h"

namespace tessivo {

/// A text in the accent colour that opens a page in the browser, which its owner does on `clicked()`.
class LinkLabel final : public ClickControl {
    Q_OBJECT
public:
    explicit LinkLabel(const QString& text, QWidget* parent = nullptr);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QAccessible::Role spokenRole() const override { return QAccessible::Link; }
    QRectF focusShapeRect() const override;

protected:
    void paintEvent(QPaintEvent*) override;
};

} // namespace tessivo
