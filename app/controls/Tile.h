#pragma once

#include "app/controls/ClickControl.h"
#include "kit/vocabulary/TestStatus.h"

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

} // namespace tessivo
