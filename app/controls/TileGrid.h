#pragma once

#include "app/controls/ClickControl.h"
#include "app/layout/Layouts.h"
#include "app/look/Metrics.h"
#include "kit/vocabulary/TestStatus.h"

#include <optional>

namespace tessivo {

class TextLabel;

/// A clickable card of This Mac: symbol, title, summary of at most two lines, status glyph. Its accessible
/// name is the title, the status word and the summary: "Keyboard: Works. Every key works".
class Tile final : public ClickControl {
    Q_OBJECT
public:
    Tile(const QString& title, const QString& symbol, QWidget* parent = nullptr);

    void setStatus(TestStatus status, const QString& summary);
    QString title() const { return m_title; }
    QString summary() const;
    TestStatus status() const { return m_status; }

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QString spokenName() const override;
    bool isOneElement() const override { return true; }

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;

private:
    int textLeft() const;
    QRect glyphPlace() const;
    QString m_title;
    QString m_symbol;
    TestStatus m_status = TestStatus::notRun;
    TextLabel* m_heading;
    TextLabel* m_summary;
};

/// As many columns of at least `minimumWidth` as fit; the last row stays ragged.
class TileGrid final : public QWidget {
    Q_OBJECT
public:
    explicit TileGrid(QWidget* parent = nullptr, int minimumWidth = Width::tileMinimum, int gap = Space::tile,
                      int maximumColumns = 0);
    void add(QWidget* tile) { m_layout->addWidget(tile); }
    int columns() const { return m_layout->columnsFor(width()); }

private:
    TileLayout* m_layout;
};

} // namespace tessivo
