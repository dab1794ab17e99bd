#include "app/controls/SelectableText.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QTextBoundaryFinder>

namespace tessivo {

SelectableText::SelectableText(const QString& text, TextRole role, ColorRole color, QWidget* parent)
    : TextLabel(text, role, color, parent) {
    setFocusPolicy(Qt::ClickFocus);
    setCursor(Qt::IBeamCursor);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    m_copy = addAction(QStringLiteral("Copy"), QKeySequence(QKeySequence::Copy), this,
                       [this] { QGuiApplication::clipboard()->setText(selectedText()); });
    addAction(QStringLiteral("Select All"), QKeySequence(QKeySequence::SelectAll), this,
              [this] { select(0, this->text().size()); });
    for (QAction* action : actions())
        action->setShortcutContext(Qt::WidgetShortcut);
    select(0, 0);
}

QString SelectableText::selectedText() const {
    return text().mid(std::min(m_anchor, m_end), std::abs(m_end - m_anchor));
}

QList<QTextLayout::FormatRange> SelectableText::highlights() const {
    if (m_anchor == m_end) return {};
    QTextLayout::FormatRange range;
    range.start = int(std::min(m_anchor, m_end));
    range.length = int(std::abs(m_end - m_anchor));
    range.format.setBackground(palette().highlight());
    range.format.setForeground(palette().highlightedText());
    return {range};
}

void SelectableText::textHasChanged() {
    select(0, 0);
    TextLabel::textHasChanged();
}

void SelectableText::select(qsizetype anchor, qsizetype end) {
    m_anchor = anchor;
    m_end = end;
    m_copy->setEnabled(anchor != end);
    update();
}

void SelectableText::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const int position = positionAt(event->position());
    select(event->modifiers() & Qt::ShiftModifier ? m_anchor : position, position);
}

void SelectableText::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) select(m_anchor, positionAt(event->position()));
}

void SelectableText::mouseDoubleClickEvent(QMouseEvent* event) {
    const QString whole = text();
    QTextBoundaryFinder words(QTextBoundaryFinder::Word, whole);
    const int position = positionAt(event->position());
    words.setPosition(position);
    const qsizetype start = words.isAtBoundary() ? position : words.toPreviousBoundary();
    words.setPosition(position);
    const qsizetype end = words.toNextBoundary();
    if (start >= 0 && end >= start) select(start, end);
}

void SelectableText::focusOutEvent(QFocusEvent* event) {
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        select(0, 0);
}

} // namespace tessivo
