#pragma once

#include "app/layout/Column.h"
#include "app/look/Metrics.h"

#include <QScrollArea>

namespace tessivo {

class Panel;

/// A column that scrolls up and down, never sideways, centred, at most `maximumWidth` wide with its padding.
/// Its thumb lies in the padding, so nothing shifts when it comes. What gets the focus scrolls into view.
class ScrollColumn : public QScrollArea {
    Q_OBJECT
public:
    /// Not the frame shape of that name, which every scroll area brings along.
    using Panel = tessivo::Panel;

    explicit ScrollColumn(QWidget* parent = nullptr, int maximumWidth = Width::column,
                          int padding = Space::page);
    ~ScrollColumn() override;

    void add(QWidget* widget, int gapAbove = 0, Qt::Alignment alignment = {}) {
        column().add(widget, gapAbove, alignment);
    }
    ColumnLayout& column() { return m_content->column(); }
    void setPadding(int horizontal, int top, int bottom) {
        column().setContentsMargins(horizontal, top, horizontal, bottom);
    }

    QSize minimumSizeHint() const override { return {120, 80}; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void keepInView(QWidget* focused);

    Column* m_content;
};

} // namespace tessivo
