#pragma once

#include "app/controls/FocusRing.h"
#include "app/controls/Theme.h"

#include <QPlainTextEdit>

namespace tessivo {

/// A plain-text field that grows with its text from one line to five and then scrolls. Text is kept as typed:
/// nothing is trimmed, and line breaks stay. Return ends a single-line thought and does nothing; Shift+Return
/// or Alt+Return breaks the line, unless `setReturnBreaksLines`. It stays quick at 100,000 characters.
class GrowingTextField final : public QPlainTextEdit, public FocusShape {
    Q_OBJECT
public:
    explicit GrowingTextField(const QString& prompt = {}, QWidget* parent = nullptr);

    QString text() const;
    /// Says nothing, and leaves cursor and undo alone when the text is the same.
    void setText(const QString& text);
    void setMaximumLines(int lines);
    /// A fixed height instead of growing; for the notes of the report.
    void setFixedTextHeight(int height);
    void setReturnBreaksLines(bool breaks) { m_returnBreaks = breaks; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QWidget* focusShapeWidget() override { return this; }
    QRectF focusShapeRect() const override { return rect(); }
    double focusShapeCorner() const override;

Q_SIGNALS:
    /// The person changed the text; not sent by `setText`.
    void textEdited(const QString& text);

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void changeEvent(QEvent*) override;
    void insertFromMimeData(const QMimeData* source) override;
    QMimeData* createMimeDataFromSelection() const override;

private:
    void afterChange();
    void splitLongBlocks();
    void fitHeight();
    void applyTheme();

    QString m_prompt;
    int m_maximumLines = 5;
    int m_fixedHeight = 0;
    int m_shownHeight = 0;
    bool m_returnBreaks = false;
    bool m_quiet = false;
};

} // namespace tessivo
