#pragma once

#include "app/look/FocusShape.h"
#include "app/look/Theme.h"

#include <QTextEdit>

namespace tessivo {

/// A plain-text field that grows with its text from one line to five and then scrolls. Text is kept as typed:
/// nothing is trimmed, line breaks and odd blanks stay. Tab leaves it, Return breaks the line. It stays quick
/// at 100,000 characters.
class GrowingTextField final : public QTextEdit, public FocusShape {
    Q_OBJECT
public:
    explicit GrowingTextField(const QString& prompt = {}, QWidget* parent = nullptr);

    /// The text with every line break as a line feed, whatever it came as.
    QString text() const;
    /// Says nothing, and leaves cursor and undo alone when the text is the same but for the kind of its line
    /// breaks.
    void setText(const QString& text);
    void setMaximumLines(int lines);
    /// A fixed height instead of growing; for the notes of the report.
    void setFixedTextHeight(int height);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    double focusShapeCorner() const override;

Q_SIGNALS:
    /// The person changed the text; not sent by `setText`.
    void textEdited(const QString& text);

protected:
    bool event(QEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void focusInEvent(QFocusEvent*) override;
    void focusOutEvent(QFocusEvent*) override;
    void insertFromMimeData(const QMimeData* source) override;
    QMimeData* createMimeDataFromSelection() const override;

private:
    void contentsHaveChanged(int position, int added);
    void splitLongBlocks(int from, int to);
    void fitHeight();
    void applyTheme();

    QString m_prompt;
    int m_maximumLines = 5;
    int m_fixedHeight = 0;
    int m_lines = 1;
    int m_changedFrom = 0;
    int m_changedTo = 0;
    bool m_quiet = false;
};

} // namespace tessivo
