#pragma once

#include "app/look/Metrics.h"

#include <QWidget>

namespace tessivo {

class TextLabel;

/// Labels and values with dividers between the rows. A row is read as one element, "label, value"; values can
/// be selected. With `twoColumns` it reads across in two columns from 720 of width.
class FactGrid final : public QWidget {
    Q_OBJECT
public:
    struct Look {
        int labelWidth = Width::factLabel;
        int gap = Space::xl; ///< between label and value
        int rowHeight = Height::factRow;
        bool twoColumns = false;
        int dividerRoom = 1; ///< 0 draws the divider within the lower row
    };
    /// The look of the identity grid of This Mac.
    static Look identity() { return {Width::identityLabel, 0, Height::identityRow, true, 0}; }
    explicit FactGrid(const Look& look, QWidget* parent = nullptr);
    explicit FactGrid(QWidget* parent = nullptr);

    /// Adds a row and returns its index.
    int addFact(const QString& label, const QString& value = {}, bool monospaced = false);
    void setValue(int index, const QString& value);
    void setFactVisible(int index, bool visible);
    QString value(int index) const;
    int count() const { return int(m_rows.size()); }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    class Row;
    Look m_look;
    QList<Row*> m_rows;
};

} // namespace tessivo
