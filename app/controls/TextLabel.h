#pragma once

#include "app/look/Accessible.h"
#include "app/look/FocusRing.h"
#include "app/look/Theme.h"

#include <QTextLayout>
#include <QWidget>

namespace tessivo {

/// Plain text, wrapped to the width given, at its role's line height. It never reads markup. Read by a screen
/// reader as its whole text; of a text beyond 10,000 characters the beginning is shown.
class TextLabel : public QWidget, public AccessibleTraits, public FocusShape {
    Q_OBJECT
public:
    explicit TextLabel(const QString& text = {}, TextRole role = TextRole::body,
                       ColorRole color = ColorRole::text1, QWidget* parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString& text);
    void setTextRole(TextRole role);
    void setColorRole(ColorRole role);
    void setAlignment(Qt::Alignment horizontal);
    /// With the mouse, and by Ctrl+A once clicked; Ctrl+C copies.
    void setSelectable(bool selectable);
    QString selectedText() const;
    /// Longer text is elided and shown whole as tool tip; 0 is no limit.
    void setMaximumLines(int lines);
    /// Keeps the room of so many lines, also when the text is shorter or empty.
    void setReservedLines(int lines);
    /// Digits all equally wide, so that a changing count stays still; for text of one line.
    void setTabularDigits(bool tabular);
    void setHeading(bool heading) { m_heading = heading; }
    bool isElided() const;

    bool hasHeightForWidth() const override { return !singleLine(); }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// Where the first line's baseline lies, from its top.
    double baseline() const;

    QAccessible::Role spokenRole() const override;
    QString spokenName() const override { return m_text; }
    QWidget* focusShapeWidget() override { return this; }
    QRectF focusShapeRect() const override { return rect(); }
    double focusShapeCorner() const override { return 4; }
    bool hasOuterRing() const override { return m_selectionStart == m_selectionEnd; }

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void changeEvent(QEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void mouseDoubleClickEvent(QMouseEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void focusOutEvent(QFocusEvent*) override;
    void contextMenuEvent(QContextMenuEvent*) override;
    bool event(QEvent*) override;

private:
    bool singleLine() const { return m_tabular || m_maximumLines == 1; }
    void breakAt(double width) const;
    void updateToolTip();
    int topOf() const;
    double naturalWidth() const;
    int positionAt(const QPointF& point) const;
    void select(int start, int end);
    void copy() const;
    void textHasChanged();
    void drawTabular(QPainter& painter) const;
    double tabularWidth() const;

    QString m_text;
    TextRole m_role;
    ColorRole m_color;
    Qt::Alignment m_alignment = Qt::AlignLeading;
    int m_maximumLines = 0;
    int m_reservedLines = 0;
    bool m_selectable = false;
    bool m_tabular = false;
    bool m_heading = false;
    int m_selectionStart = 0;
    int m_selectionEnd = 0;
    // Measuring and drawing share one layout, broken into lines at the width last asked for.
    mutable QTextLayout m_layout;
    mutable double m_brokenAt = -1;
    mutable bool m_elided = false;
    mutable double m_naturalWidth = -1;
    mutable int m_naturalLines = 1;
};

/// A heading over a group of blocks: "Checks by hand".
class SectionHeading final : public TextLabel {
    Q_OBJECT
public:
    explicit SectionHeading(const QString& text, QWidget* parent = nullptr)
        : TextLabel(text, TextRole::sectionHeading, ColorRole::text1, parent) {
        setHeading(true);
    }
};

} // namespace tessivo
