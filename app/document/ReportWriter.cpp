#include "app/document/ReportWriter.h"

#include "app/document/ReportFonts.h"

#include <QAbstractTextDocumentLayout>
#include <QPdfWriter>
#include <QTextTable>
#include <limits>

namespace tessivo {

namespace {

const QColor boxBackground = QColor::fromRgbF(0.92f, 0.97f, 0.94f);
const QColor boxBorder = QColor::fromRgbF(0.55f, 0.78f, 0.64f);
constexpr double boxPadding = 10;
constexpr double lineSpacing = 1.22; ///< line height as a multiple of the size

/// A device on which one unit is one point: what the document is measured for.
class PointDevice final : public QPaintDevice {
public:
    QPaintEngine* paintEngine() const override { return nullptr; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 72;
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

PointDevice& pointDevice() {
    static PointDevice device;
    return device;
}

/// What a format's length must be for one point. The layout takes lengths as pixels of the screen and
/// scales them to its device, so the factor is measured rather than guessed.
double point() {
    static const double factor = [] {
        constexpr double probe = 1000;
        QTextDocument document;
        document.setDocumentMargin(0);
        document.documentLayout()->setPaintDevice(&pointDevice());
        QTextCursor cursor(&document);
        cursor.insertBlock();
        const double before = document.size().height();
        QTextBlockFormat format;
        format.setTopMargin(probe);
        cursor.setBlockFormat(format);
        const double grown = document.size().height() - before;
        return grown > 0 ? probe / grown : 1.0;
    }();
    return factor;
}

} // namespace

double ReportWriter::lengthOf(double points) {
    return points * point();
}

ReportWriter::ReportWriter(int longestRun)
    : m_document(std::make_unique<QTextDocument>()), m_cursor(m_document.get()), m_longestRun(longestRun) {
    m_document->setUndoRedoEnabled(false);
    m_document->setDefaultFont(ReportFonts::text(10.5));
    m_document->setUseDesignMetrics(true);
    m_document->documentLayout()->setPaintDevice(&pointDevice());
}

void ReportWriter::paragraph(const Paragraph& style) {
    QTextBlockFormat format;
    // The layout keeps only the larger of two neighbouring margins; the sum is wanted.
    format.setTopMargin(lengthOf(m_pendingSpace + style.before));
    m_pendingSpace = style.after;
    // Side margins and first-line indents, unlike all other lengths, are taken as the device's own.
    format.setLeftMargin(style.indent + style.hanging);
    format.setTextIndent(-style.hanging);
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
    format.setFont(font);
    format.setForeground(color);
    m_cursor.insertText(text, format);
}

void ReportWriter::run(const std::string& text, const Run& style) {
    QString shown = QString::fromStdString(text);
    if (shown.size() > m_longestRun) {
        shown.truncate(m_longestRun);
        shown.append(QChar(0x2026));
    }
    // A line feed stays a line of the same paragraph; what else isn't text has no picture.
    for (QChar& c : shown) {
        if (c == u'\n' || c == QChar::ParagraphSeparator)
            c = QChar::LineSeparator;
        else if (c == QChar::ObjectReplacementCharacter ||
                 (c.category() == QChar::Other_Control && c != u'\t'))
            c = u' ';
    }
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
    insert(shown, ReportFonts::fitted(font, shown), style.color);
}

void ReportWriter::symbol(char32_t glyph, const Run& style) {
    const QString text = QString::fromUcs4(&glyph, 1);
    insert(text, ReportFonts::fitted(ReportFonts::symbol(style.size, style.weight, glyph), text),
           style.color);
}

void ReportWriter::beginBox(double after) {
    QTextTableFormat format;
    format.setBorder(1);
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
    m_cursor = QTextCursor();
    return std::move(m_document);
}

} // namespace tessivo
