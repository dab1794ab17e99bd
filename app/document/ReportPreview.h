#pragma once

#include "app/look/Accessible.h"
#include "kit/report/ConditionReport.h"

#include <QTextDocument>
#include <QWidget>
#include <memory>
#include <optional>

namespace tessivo {

/// The report on a white sheet of paper, as wide as a US Letter page and as tall as its text, drawn at the
/// width it is given and sharp at every scale. Laid out when it is shown, not before. Main thread.
class ReportPreview final : public QWidget, public AccessibleTraits {
    Q_OBJECT

public:
    static constexpr int sheetWidth = 612;
    static constexpr int inset = 50; ///< from the sheet's edge to its text, on all sides

    explicit ReportPreview(QWidget* parent = nullptr);
    ~ReportPreview() override;

    /// Nothing happens when the report reads the same as the one shown, whatever its id.
    void setReport(const ConditionReport& report);
    const std::optional<ConditionReport>& report() const { return m_report; }
    /// The text as it is laid out; null before the first layout.
    const QTextDocument* document() const { return m_document.get(); }

    QAccessible::Role spokenRole() const override { return QAccessible::Document; }
    /// The whole text, as far as it is laid out.
    QString spokenValue() const override;

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void layOut();

    std::optional<ConditionReport> m_report;
    std::unique_ptr<QTextDocument> m_document;
};

} // namespace tessivo
