#include "app/pages/writeup/ListingText.h"

#include "app/look/Metrics.h"

#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

namespace tessivo {

namespace {

constexpr double strokeOpacity = 15; // percent

} // namespace

ListingText::ListingText(const QString& name, QWidget* parent) : QTextEdit(parent) {
    setAccessibleName(name);
    setReadOnly(true);
    setAcceptRichText(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setFont(theme().font(TextRole::body));
    document()->setDocumentMargin(Space::l);
    viewport()->setAutoFillBackground(false);
}

void ListingText::setListing(const QString& text) {
    if (text == toPlainText()) return;
    setPlainText(text);
    QTextBlockFormat format;
    format.setLineHeight(theme().lineHeight(TextRole::body), QTextBlockFormat::MinimumHeight);
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.mergeBlockFormat(format);
    moveCursor(QTextCursor::Start);
}

double ListingText::focusShapeCorner() const {
    return Corner::textBox;
}

void ListingText::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(viewport());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(theme().color(ColorRole::text1, strokeOpacity));
        painter.setBrush(theme().color(ColorRole::card));
        painter.drawRoundedRect(QRectF(viewport()->rect()).adjusted(0.5, 0.5, -0.5, -0.5), Corner::textBox,
                                Corner::textBox);
    }
    QTextEdit::paintEvent(event);
}

} // namespace tessivo
