#pragma once

#include "app/controls/ScrollColumn.h"
#include "app/document/ReportPreview.h"

namespace tessivo {

/// A report's sheet of paper on a well, scrolling: at full size, or drawn smaller to fit the width.
class SheetView final : public ScrollColumn {
    Q_OBJECT

public:
    /// The width at which the sheet has its full size.
    static constexpr int fullWidth = 632;

    explicit SheetView(QWidget* parent = nullptr);

    ReportPreview& preview() const { return *m_preview; }
    /// Where the person has scrolled to stays, unless `scrollToTop`.
    void setReport(const ConditionReport& report) { m_preview->setReport(report); }
    void scrollToTop();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    ReportPreview* m_preview;
};

} // namespace tessivo
