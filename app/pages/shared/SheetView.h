#pragma once

#include "app/document/ReportPreview.h"
#include "app/layout/ScrollColumn.h"
#include "app/look/FocusShape.h"

namespace tessivo {

/// A report's sheet of paper on a well, scrolling: at full size, or drawn smaller to fit the width. With the
/// keyboard's focus it scrolls by arrows and pages.
class SheetView final : public ScrollColumn, public FocusShape {
    Q_OBJECT

public:
    /// The width at which the sheet has its full size.
    static constexpr int fullWidth = 632;

    explicit SheetView(QWidget* parent = nullptr);

    ReportPreview& preview() const { return *m_preview; }
    /// Where the person has scrolled to stays, unless `scrollToTop`.
    void setReport(const ConditionReport& report);
    void scrollToTop();

    QWidget* focusShapeWidget() override { return m_preview; }
    QRectF focusShapeRect() const override { return m_preview->rect(); }
    double focusShapeCorner() const override { return 0; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    ReportPreview* m_preview;
};

} // namespace tessivo
