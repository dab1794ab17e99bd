#pragma once

#include "app/look/Accessible.h"
#include "app/look/Theme.h"

#include <QTextLayout>
#include <QWidget>

namespace tessivo {

/// Plain text, wrapped to the width given, at its role's line height. It never reads markup. Read by a screen
/// reader as its whole text; of a text beyond 10,000 characters the beginning is shown.
class TextLabel : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    explicit TextLabel(const QString& text = {}, TextRole role = TextRole::body,
                       ColorRole color = ColorRole::text1, QWidget* parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString& text);
    void setTextRole(TextRole role);
    void setColorRole(ColorRole role);
    void setAlignment(Qt::Alignment horizontal);
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

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void changeEvent(QEvent*) override;
    /// Parts of the text that stand out, as a selection does.
    virtual QList<QTextLayout::FormatRange> highlights() const { return {}; }
    virtual void textHasChanged();
    /// Where in the text a point of the label lies.
    int positionAt(const QPointF& point) const;

private:
    bool singleLine() const { return m_tabular || m_maximumLines == 1; }
    void breakAt(double width) const;
    void updateToolTip();
    int topOf() const;
    double naturalWidth() const;
    double drawTabular(QPainter* painter, const QPointF& start) const;

    QString m_text;
    TextRole m_role;
    ColorRole m_color;
    Qt::Alignment m_alignment = Qt::AlignLeading;
    int m_maximumLines = 0;
    int m_reservedLines = 0;
    bool m_tabular = false;
    bool m_heading = false;
    // Measuring and drawing share one layout, broken into lines at the width last asked for.
    mutable QTextLayout m_layout;
    mutable double m_brokenAt = -1;
    mutable bool m_elided = false;
    mutable double m_naturalWidth = -1;
    mutable int m_naturalLines = 1;
};

} // namespace tessivo
