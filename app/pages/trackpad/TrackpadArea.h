#pragma once

#include "app/look/Accessible.h"
#include "kit/session/TrackpadTest.h"

#include <QWidget>

namespace tessivo {

/// The picture of the trackpad: 8 columns by 5 rows of cells, those touched green. Row 0 is at the top,
/// column 0 at the left. Read as one element with the part touched.
class TrackpadArea final : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    /// `surface` covers the cells.
    explicit TrackpadArea(QWidget* surface, QWidget* parent = nullptr);

    /// Repaints only the cells that differ.
    void setTouched(const std::set<std::int64_t>& touched);
    /// Where a cell lies in an area of this size; column and row from 0.
    static QRectF cellRect(QSizeF area, std::int64_t column, std::int64_t row);
    /// Whole percent of the cells, truncated.
    int percent() const;

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QAccessible::Role spokenRole() const override { return QAccessible::Graphic; }
    QString spokenName() const override;
    bool isOneElement() const override { return true; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent*) override;

private:
    QWidget* m_surface;
    std::set<std::int64_t> m_touched;
};

} // namespace tessivo
