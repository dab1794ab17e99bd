#include "app/document/ReportWriter.h"

#include "app/document/ReportFonts.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextTable>
#include <algorithm>
#include <limits>

namespace tessivo {

namespace {

using ReportDocument::unitsPerPoint;

const QColor boxBackground = QColor::fromRgbF(0.92f, 0.97f, 0.94f);
const QColor boxBorder = QColor::fromRgbF(0.55f, 0.78f, 0.64f);
constexpr double boxPadding = 10;
constexpr double boxBorderWidth = 1;
constexpr double lineSpacing = 1.22; ///< line height as a multiple of the size

/// A line feed stays a line of the same paragraph; what else isn't text has no picture.
QChar printable(QChar c) {
    if (c == u'\n' || c == QChar::ParagraphSeparator) return QChar::LineSeparator;
    if (c == u'\t') return c;
    // The layout's own marks for objects and frames.
    if (c == QChar::ObjectReplacementCharacter || c.unicode() == 0xFDD0 || c.unicode() == 0xFDD1)
        return QChar::ReplacementCharacter;
    return c.category() == QChar::Other_Control ? QChar(u' ') : c;
}

/// Laying a block out takes time by the square of its length, so a longer text goes into several that follow
/// on each other without a space between.
constexpr qsizetype longestBlock = 4000;

/// Where a text may be cut, near its end: behind a blank, else between two characters.
qsizetype cutBefore(QStringView text) {
    for (qsizetype at = text.size(); at > text.size() / 2; --at)
        if (text.at(at - 1).isSpace()) return at;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.data(), text.size());
    finder.toEnd();
    const qsizetype before = finder.toPreviousBoundary();
    return before > 0 ? before : text.size();
}

/// What the document is measured for. Fonts come in whole pixels alone, so a device of one pixel a point
/// would set 10.5 as 11.
class FineDevice final : public QPaintDevice {
public:
    QPaintEngine* paintEngine() const override { return nullptr; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 72 * unitsPerPoint;
        case PdmWidth:
        case PdmHeight:
            return 1 << 20;
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return 0;
        }
    }
};

FineDevice& fineDevice() {
    static FineDevice device;
    return device;
}

/// What a format's length must be for one point. The layout takes lengths as pixels of the screen and
/// scales them to its device, so the factor is measured rather than guessed.
double point() {
    static const double factor = [] {
        constexpr double probe = 1000;
        QTextDocument document;
        document.setDocumentMargin(0);
        document.documentLayout()->setPaintDevice(&fineDevice());
        QTextCursor cursor(&document);
        cursor.insertBlock();
        const double before = document.size().height();
        QTextBlockFormat format;
        format.setTopMargin(probe);
        cursor.setBlockFormat(format);
        const double grown = (document.size().height() - before) / unitsPerPoint;
        return grown > 0 ? probe / grown : 1.0;
    }();
    return factor;
}

} // namespace

double ReportWriter::lengthOf(double points) {
    return points * point();
}

ReportWriter::ReportWriter(const Paper& paper, const Limits& limits)
    : m_document(std::make_unique<QTextDocument>()), m_cursor(m_document.get()), m_limits(limits) {
    m_document->setUndoRedoEnabled(false);
    m_document->setDefaultFont(ReportFonts::text(10.5));
    m_document->setUseDesignMetrics(true);
    m_document->documentLayout()->setPaintDevice(&fineDevice());
    // Before the text, which would be laid out anew for each of these.
    m_document->setDocumentMargin(lengthOf(paper.margin));
    if (paper.size.height() > 0)
        m_document->setPageSize(paper.size * unitsPerPoint);
    else
        m_document->setTextWidth(paper.size.width() * unitsPerPoint);
    // One change for the layout, not one for each run.
    m_cursor.beginEditBlock();
}

void ReportWriter::paragraph(const Paragraph& style) {
    ++m_paragraphs;
    QTextBlockFormat format;
    // The layout keeps only the larger of two neighbouring margins; the sum is wanted.
    format.setTopMargin(lengthOf(m_pendingSpace + style.before));
    m_pendingSpace = style.after;
    // Side margins and first-line indents, unlike all other lengths, are taken as the device's own.
    format.setLeftMargin(unitsPerPoint * (style.indent + style.hanging));
    format.setTextIndent(-unitsPerPoint * style.hanging);
    QList<QTextOption::Tab> tabs;
    for (double tab : style.tabs)
        tabs.append(QTextOption::Tab(lengthOf(tab), QTextOption::LeftTab));
    format.setTabPositions(tabs);
    m_lineHeight = 0;
    if (m_blockIsFresh)
        m_cursor.setBlockFormat(format);
    else
        m_cursor.insertBlock(format);
    m_blockIsFresh = false;
}

void ReportWriter::insert(const QString& text, const QFont& font, const QColor& color) {
    // The layout rounds a face's natural height up to whole points; a script that needs the room keeps it.
    const bool plain = ReportFonts::isPlain(text);
    const double height = plain ? lineSpacing * font.pointSizeF() : std::numeric_limits<double>::infinity();
    if (height > m_lineHeight) {
        m_lineHeight = height;
        QTextBlockFormat format;
        format.setLineHeight(plain ? lengthOf(height) : 100,
                             plain ? QTextBlockFormat::FixedHeight : QTextBlockFormat::SingleHeight);
        m_cursor.mergeBlockFormat(format);
    }
    QTextCharFormat format;
    format.setFont(ReportFonts::fitted(font, text));
    format.setForeground(color);
    QStringView rest(text);
    while (rest.size() > longestBlock) {
        const qsizetype cut = cutBefore(rest.first(longestBlock));
        m_cursor.insertText(rest.first(cut).toString(), format);
        rest = rest.sliced(cut);
        QTextBlockFormat next = m_cursor.blockFormat();
        next.setTopMargin(0);
        next.setTextIndent(0);
        m_cursor.insertBlock(next);
    }
    m_cursor.insertText(rest.toString(), format);
}

void ReportWriter::run(const std::string& text, const Run& style) {
    QString shown = QString::fromStdString(text);
    const qsizetype room = std::clamp<qsizetype>(m_limits.document - m_written, 0, m_limits.run);
    if (shown.size() > room) {
        // Not between the halves of a surrogate pair.
        shown.truncate(room > 0 && shown.at(room - 1).isHighSurrogate() ? room - 1 : room);
        shown.append(QChar(0x2026));
    }
    m_written += shown.size();
    for (QChar& c : shown)
        c = printable(c);
    QFont font;
    switch (style.face) {
    case Face::regular:
        font = ReportFonts::text(style.size, style.weight);
        break;
    case Face::italic:
        font = ReportFonts::italic(style.size);
        break;
    case Face::monospaced:
        font = ReportFonts::monospaced(style.size, style.weight);
        break;
    }
    // Each stretch of one kind is set for itself: a foreign name doesn't cost the words around it their
    // place in a search.
    for (const QString& stretch : ReportFonts::stretches(shown))
        insert(stretch, font, style.color);
}

void ReportWriter::symbol(char32_t glyph, const Run& style) {
    const QString text = QString::fromUcs4(&glyph, 1);
    insert(text, ReportFonts::symbol(style.size, style.weight, glyph), style.color);
}

void ReportWriter::beginBox(double after) {
    QTextTableFormat format;
    // The table and its one cell each draw a border.
    format.setBorder(lengthOf(boxBorderWidth / 2));
    format.setBorderBrush(boxBorder);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderCollapse(false);
    format.setCellPadding(lengthOf(boxPadding));
    format.setCellSpacing(0);
    format.setMargin(0);
    format.setTopMargin(lengthOf(m_pendingSpace));
    format.setBottomMargin(lengthOf(after));
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    QTextTable* table = m_cursor.insertTable(1, 1, format);
    QTextTableCell cell = table->cellAt(0, 0);
    QTextCharFormat cellFormat = cell.format();
    cellFormat.setBackground(boxBackground);
    cell.setFormat(cellFormat);
    m_cursor = cell.firstCursorPosition();
    m_blockIsFresh = true;
    m_pendingSpace = 0;
}

void ReportWriter::endBox() {
    m_cursor.movePosition(QTextCursor::End);
    m_blockIsFresh = true;
    m_pendingSpace = 0;
}

std::unique_ptr<QTextDocument> ReportWriter::take() {
    m_cursor.endEditBlock();
    m_cursor = QTextCursor();
    return std::move(m_document);
}

} // namespace tessivo
