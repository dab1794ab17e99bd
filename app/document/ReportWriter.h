#pragma once

#include "app/document/ReportDocument.h"

#include <QColor>
#include <QFont>
#include <QSizeF>
#include <QTextCursor>
#include <QTextDocument>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace tessivo {

/// Writes styled paragraphs into a text document. Main thread.
class ReportWriter final {
public:
    enum class Face { regular, italic, monospaced };

    /// Distances in points. `indent` moves every line, `hanging` all lines but the first.
    struct Paragraph {
        double before = 0;
        double after = 0;
        std::vector<double> tabs;
        double indent = 0;
        double hanging = 0;
    };
    struct Run {
        double size = 10.5;
        QFont::Weight weight = QFont::Normal;
        QColor color = Qt::black;
        Face face = Face::regular;
    };

    /// How much text a run and the whole document may hold, in UTF-16 units; what is beyond is cut off with
    /// an ellipsis. And how many paragraphs there may be until the document is full.
    struct Limits {
        qsizetype run = std::numeric_limits<qsizetype>::max();
        qsizetype document = std::numeric_limits<qsizetype>::max();
        qsizetype paragraphs = std::numeric_limits<qsizetype>::max();
    };

    /// What the text is laid out for, in points; a height of 0 is one endless sheet.
    struct Paper {
        QSizeF size;
        double margin = 0; ///< on all four sides
    };

    ReportWriter(const Paper& paper, const Limits& limits);

    /// Whether lists should end here. A few more paragraphs do no harm.
    bool isFull() const { return m_paragraphs >= m_limits.paragraphs; }

    void paragraph(const Paragraph& style);
    void run(const std::string& text, const Run& style);
    /// One glyph in a face that has it.
    void symbol(char32_t glyph, const Run& style);
    /// Paragraphs up to `endBox` stand in the buyer's box, full width, with this space behind it.
    void beginBox(double after);
    void endBox();
    std::unique_ptr<QTextDocument> take();

    /// What a length of points must be in a text format for the layout to come out at that many points.
    static double lengthOf(double points);

private:
    void insert(const QString& text, const QFont& font, const QColor& color);

    std::unique_ptr<QTextDocument> m_document;
    QTextCursor m_cursor;
    Limits m_limits;
    qsizetype m_written = 0;
    qsizetype m_paragraphs = 0;
    double m_pendingSpace = 0; ///< the last paragraph's space after, which adds to the next one's before
    double m_lineHeight = 0;   ///< of the paragraph that is being written
    bool m_blockIsFresh = true;
};

} // namespace tessivo
