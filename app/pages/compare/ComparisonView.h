#pragma once

#include "app/layout/ScrollColumn.h"
#include "kit/report/ReportComparison.h"

namespace tessivo {

/// The items of a comparison, scrolling: the differences, each as before and after, then what is the same in
/// both, of which the tests that nobody asks for by name are folded. Of a text of any length the beginning is
/// drawn. With the keyboard's focus it scrolls by arrows and pages.
class ComparisonView final : public QWidget {
    Q_OBJECT

public:
    explicit ComparisonView(QWidget* parent = nullptr);

    void setComparison(const ReportComparison& comparison);
    /// Only these words, in place of a comparison.
    void setWords(const QString& words);
    /// Puts what takes the focus here behind a widget in the order of the Tab key; after each change.
    void follow(QWidget* stop);

private:
    ScrollColumn* begin();
    void addDifferences(const ReportComparison& comparison);
    void addSame(const ReportComparison& comparison);

    ScrollColumn* m_column = nullptr;
    QWidget* m_fold = nullptr; ///< the button, where there is one
};

} // namespace tessivo
