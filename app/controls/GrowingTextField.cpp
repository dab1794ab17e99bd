#include "app/controls/GrowingTextField.h"

#include "app/look/Metrics.h"
#include "app/look/Paint.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <cmath>

// A paragraph is laid out whole on every key press, so a long one is held as several blocks. Line breaks of
// the text are line separators within a block and never blocks of their own: a border between blocks means
// nothing at all, and no editing, undoing or joining of blocks can change what the text says.

namespace tessivo {
namespace {

constexpr int blockTarget = 1000;
constexpr int blockLimit = 2000;
constexpr int paddingAcross = 11;

/// Frame marks of the document's own, which no text may hold.
bool isDocumentMark(QChar character) {
    return character.unicode() == 0xFDD0 || character.unicode() == 0xFDD1;
}

QString toSeparators(QString text) {
    text.replace(QStringLiteral("\r\n"), QString(QChar::LineSeparator));
    for (QChar& character : text)
        if (character == QLatin1Char('\n') || character == QLatin1Char('\r') ||
            character == QChar::ParagraphSeparator)
            character = QChar::LineSeparator;
    text.removeIf(isDocumentMark);
    return text;
}

QString fromSeparators(QString text) {
    text.remove(QChar::ParagraphSeparator);
    text.replace(QChar::LineSeparator, QLatin1Char('\n'));
    return text;
}

/// A place at or before `target` where the text may be cut: after a blank, else between two graphemes.
qsizetype cutBefore(QStringView text, qsizetype target) {
    for (qsizetype at = target; at > target / 2; --at)
        if (text.at(at - 1) == QLatin1Char(' ')) return at;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.data(), text.size());
    finder.setPosition(target);
    if (finder.isAtBoundary()) return target;
    const qsizetype before = finder.toPreviousBoundary();
    return before > 0 ? before : target;
}

/// The text with block borders put in.
QString inBlocks(const QString& text) {
    if (text.size() <= blockLimit) return text;
    QString result;
    result.reserve(text.size() + text.size() / blockTarget + 1);
    QStringView rest(text);
    while (rest.size() > blockLimit) {
        const qsizetype cut = cutBefore(rest.left(blockLimit), blockTarget);
        result.append(rest.left(cut));
        result.append(QChar::ParagraphSeparator);
        rest = rest.sliced(cut);
    }
    result.append(rest);
    return result;
}

} // namespace

GrowingTextField::GrowingTextField(const QString& prompt, QWidget* parent)
    : QTextEdit(parent), m_prompt(prompt) {
    setAcceptRichText(false);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleDescription(prompt);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    applyTheme();
    connect(&theme(), &Theme::changed, this, &GrowingTextField::applyTheme);
    connect(document(), &QTextDocument::contentsChange, this,
            [this](int position, int, int added) { contentsHaveChanged(position, added); });
    connect(this, &QTextEdit::textChanged, this, [this] {
        if (m_quiet) return;
        splitLongBlocks(m_changedFrom, m_changedTo);
        fitHeight();
        Q_EMIT textEdited(text());
    });
}

void GrowingTextField::applyTheme() {
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    setPalette(palette);
    document()->setDefaultFont(theme().font(TextRole::body));
    setFont(theme().font(TextRole::body));
    const int line = theme().lineHeight(TextRole::body);
    const int above = (theme().scaled(Height::field) - line) / 2;
    // A fixed line height puts all the room above the letters; half of it belongs below them.
    const QFontMetricsF metrics(theme().font(TextRole::body));
    const int low = int(std::round((line - metrics.ascent() - metrics.descent()) / 2));
    setViewportMargins(paddingAcross, above - low, paddingAcross, above + low - 1);

    const bool wasQuiet = std::exchange(m_quiet, true);
    QTextBlockFormat format;
    format.setLineHeight(line, QTextBlockFormat::FixedHeight);
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    const bool undo = document()->isUndoRedoEnabled() && document()->isUndoAvailable();
    if (undo)
        all.joinPreviousEditBlock();
    else
        document()->setUndoRedoEnabled(false);
    all.mergeBlockFormat(format);
    if (undo)
        all.endEditBlock();
    else
        document()->setUndoRedoEnabled(true);
    m_quiet = wasQuiet;
    fitHeight();
    updateGeometry();
}

QString GrowingTextField::text() const {
    return fromSeparators(document()->toRawText());
}

void GrowingTextField::setText(const QString& text) {
    const QString separated = toSeparators(text);
    if (fromSeparators(separated) == this->text()) return;
    const bool wasQuiet = std::exchange(m_quiet, true);
    document()->setUndoRedoEnabled(false);
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.insertText(inBlocks(separated));
    document()->setUndoRedoEnabled(true);
    moveCursor(QTextCursor::Start);
    m_quiet = wasQuiet;
    fitHeight();
    viewport()->update();
}

void GrowingTextField::setMaximumLines(int lines) {
    m_maximumLines = lines;
    fitHeight();
}

void GrowingTextField::setFixedTextHeight(int height) {
    m_fixedHeight = height;
    updateGeometry();
}

void GrowingTextField::contentsHaveChanged(int position, int added) {
    m_changedFrom = position;
    m_changedTo = position + added;
}

void GrowingTextField::splitLongBlocks(int from, int to) {
    QList<int> cuts;
    for (QTextBlock block = document()->findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        const QString text = block.text();
        qsizetype start = 0;
        while (text.size() - start > blockLimit) {
            start += cutBefore(QStringView(text).sliced(start, blockLimit), blockTarget);
            cuts.prepend(block.position() + int(start));
        }
    }
    if (cuts.isEmpty()) return;
    const bool wasQuiet = std::exchange(m_quiet, true);
    QTextCursor cursor(document());
    cursor.joinPreviousEditBlock();
    for (const int cut : cuts) {
        cursor.setPosition(cut);
        cursor.insertBlock();
    }
    cursor.endEditBlock();
    m_quiet = wasQuiet;
}

void GrowingTextField::fitHeight() {
    int lines = 0;
    for (QTextBlock block = document()->begin(); block.isValid() && lines < m_maximumLines;
         block = block.next()) {
        // Asking for its rectangle is what lays a block out.
        document()->documentLayout()->blockBoundingRect(block);
        lines += block.layout()->lineCount();
    }
    lines = std::clamp(lines, 1, m_maximumLines);
    if (lines == m_lines) return;
    m_lines = lines;
    updateGeometry();
}

QSize GrowingTextField::sizeHint() const {
    const int height = m_fixedHeight > 0 ? theme().scaled(m_fixedHeight)
                                         : theme().scaled(Height::field) +
                                               (m_lines - 1) * theme().lineHeight(TextRole::body);
    return {theme().scaled(240), height};
}

QSize GrowingTextField::minimumSizeHint() const {
    return {theme().scaled(100), sizeHint().height()};
}

double GrowingTextField::focusShapeCorner() const {
    return m_fixedHeight > 0 ? Corner::textBox : Corner::field;
}

bool GrowingTextField::event(QEvent* event) {
    if (event->type() == QEvent::Paint) {
        QPainter painter(this);
        painter.setOpacity(opacityOf(*this));
        paintRounded(painter, rect(), focusShapeCorner(), theme().color(ColorRole::field),
                     hasFocus() ? QColor() : theme().color(ColorRole::fieldBorder));
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            event->accept();
            return true;
        }
    }
    return QTextEdit::event(event);
}

void GrowingTextField::paintEvent(QPaintEvent* event) {
    QTextEdit::paintEvent(event);
    if (!document()->isEmpty()) return;
    QPainter painter(viewport());
    painter.setFont(theme().font(TextRole::body));
    painter.setPen(theme().color(ColorRole::text3));
    const QFontMetricsF metrics(painter.font());
    const int line = theme().lineHeight(TextRole::body);
    painter.drawText(QPointF(0, line - std::round(metrics.descent())),
                     metrics.elidedText(m_prompt, Qt::ElideRight, viewport()->width()));
}

void GrowingTextField::resizeEvent(QResizeEvent* event) {
    QTextEdit::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) fitHeight();
}

void GrowingTextField::keyPressEvent(QKeyEvent* event) {
    QTextCursor cursor = textCursor();
    if (event->matches(QKeySequence::InsertParagraphSeparator) ||
        event->matches(QKeySequence::InsertLineSeparator)) {
        cursor.insertText(QString(QChar::LineSeparator));
        ensureCursorVisible();
        return;
    }
    // A border between blocks isn't text: erasing steps over it to what the person sees.
    const bool backward = event->matches(QKeySequence::Backspace) || event->key() == Qt::Key_Backspace;
    const bool forward = event->matches(QKeySequence::Delete) || event->key() == Qt::Key_Delete;
    if (!cursor.hasSelection() && ((backward && cursor.atBlockStart()) || (forward && cursor.atBlockEnd()))) {
        const bool wasQuiet = std::exchange(m_quiet, true);
        if (backward) cursor.deletePreviousChar();
        if (forward) cursor.deleteChar();
        m_quiet = wasQuiet;
    }
    QTextEdit::keyPressEvent(event);
}

void GrowingTextField::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    update();
}

void GrowingTextField::focusOutEvent(QFocusEvent* event) {
    QTextEdit::focusOutEvent(event);
    update();
}

void GrowingTextField::insertFromMimeData(const QMimeData* source) {
    if (!source->hasText()) return;
    textCursor().insertText(inBlocks(toSeparators(source->text())));
    ensureCursorVisible();
}

QMimeData* GrowingTextField::createMimeDataFromSelection() const {
    auto* data = new QMimeData;
    data->setText(fromSeparators(textCursor().selectedText()));
    return data;
}

} // namespace tessivo
