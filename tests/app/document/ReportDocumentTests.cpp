#include "app/document/ReportDocument.h"
#include "app/document/ReportPreview.h"
#include "kit/report/HistoryStore.h"
#include "kit/report/ReportText.h"
#include "tests/app/PageTesting.h"
#include "tests/app/document/DocumentTesting.h"

#include <QAbstractTextDocumentLayout>
#include <QElapsedTimer>
#include <QTextBlock>
#include <gmock/gmock.h>

using namespace tessivo;
using namespace tessivo::documenttest;

namespace {

constexpr const char* pacific = "America/Los_Angeles";
constexpr double textWidth = 512;

/// What one run of the finished document looks like; sizes and places in points.
struct SetRun {
    std::string text;
    double size;
    int weight;
    QColor color;
    double x;
    bool italic;
};

/// The document, measured as it is laid out.
class LaidOut final {
public:
    explicit LaidOut(const ConditionReport& report)
        : m_document(ReportDocument::make(report, textWidth, pacific)) {
        m_document->size();
        for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next())
            m_blocks.push_back(block);
    }

    /// The first block that begins so, at or behind the one found last.
    QTextBlock find(const char* beginning) {
        for (; m_at < m_blocks.size(); ++m_at)
            if (plain(m_blocks[m_at].text()).startsWith(QString::fromUtf8(beginning))) return m_blocks[m_at];
        ADD_FAILURE() << "no " << beginning;
        return m_blocks.back();
    }

    std::vector<SetRun> runs(const QTextBlock& block) const {
        std::vector<SetRun> found;
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            for (const QString& piece : fragment.text().split(u'\t', Qt::SkipEmptyParts)) {
                const QTextCharFormat format = fragment.charFormat();
                const int at = fragment.position() - block.position() + int(fragment.text().indexOf(piece));
                const QTextLine line = block.layout()->lineForTextPosition(at);
                const double left = m_document->documentLayout()->blockBoundingRect(block).left();
                const double x = (left + line.cursorToX(at)) / unit;
                found.push_back({piece.toStdString(), format.font().pointSizeF(), format.font().weight(),
                                 format.foreground().color(), x, format.font().italic()});
            }
        }
        return found;
    }

    /// The room between the last line of the block before and the first of this one.
    double gapAbove(const QTextBlock& block) const { return (top(block) - bottom(block.previous())) / unit; }

private:
    static QString plain(const QString& text) { return QString(text).replace(u'\t', u' '); }
    static double top(const QTextBlock& block) {
        return block.layout()->position().y() + block.layout()->lineAt(0).y();
    }
    static double bottom(const QTextBlock& block) {
        const QTextLine last = block.layout()->lineAt(block.layout()->lineCount() - 1);
        return block.layout()->position().y() + last.y() + last.height();
    }

    static constexpr double unit = ReportDocument::unitsPerPoint;
    std::unique_ptr<QTextDocument> m_document;
    std::vector<QTextBlock> m_blocks;
    std::size_t m_at = 0;
};

QColor srgb(double r, double g, double b) {
    return QColor::fromRgbF(float(r), float(g), float(b));
}

const QColor black(Qt::black);
const QColor grey = srgb(0.38, 0.38, 0.38);
const QColor dim = srgb(0.45, 0.45, 0.45);
const QColor green = srgb(0.1, 0.55, 0.3);
const QColor red = srgb(0.8, 0.16, 0.14);
const QColor amber = srgb(0.78, 0.45, 0);

ConditionReport everyStyle() {
    ConditionReport report = sampleReport();
    report.results[0].status = TestStatus::checkByHand;
    report.results[1].status = TestStatus::notRun;
    report.results[1].details = {"first", "", "second"};
    report.results[1].note = "with a note";
    report.results[2].status = TestStatus::unfinished;
    report.results[3].status = TestStatus::notIncluded;
    return report;
}

} // namespace

TEST(ReportDocument, setsEachStyleToThePoint) {
    struct Row {
        const char* beginning;
        double gapAbove; ///< negative: not looked at
        std::vector<SetRun> runs;
    };
    constexpr int regular = QFont::Normal, semibold = QFont::DemiBold, bold = QFont::Bold;
    const Row rows[] = {
        {"CONDITION REPORT", -1, {{"CONDITION REPORT", 9, bold, srgb(0, 0.45, 0.33), 0, false}}},
        {"MacBook Air", 2, {{"MacBook Air (M2, 2022)", 20, bold, black, 0, false}}},
        {"Tested",
         4,
         {{"Tested March 5, 2026 at 4:07 PM PST with Tessivo 1.0", 10.5, regular, grey, 0, false}}},
        {"Serial number",
         -1,
         {{"Serial number", 10.5, regular, grey, 0, false}, {"J4N7WQX2PL", 11, semibold, black, 110, false}}},
        {"Model ID",
         -1,
         {{"Model ID", 10.5, regular, grey, 0, false}, {"Mac14,2", 10.5, regular, black, 110, false}}},
        {"macOS",
         2,
         {{"macOS", 10.5, regular, grey, 0, false},
          {"macOS 26.1 (25B78)", 10.5, regular, black, 110, false}}},
        {"Results: ", 14, {}},
        {"? Model and",
         14,
         {{"?", 11, bold, amber, 0, false},
          {"Model and serial number", 10.5, semibold, black, 18, false},
          {"Check by hand", 10.5, semibold, amber, 330, false}}},
        {"MacBook Air", 1, {{"MacBook Air (M2, 2022), serial J4N7WQX2PL", 10.5, regular, black, 18, false}}},
        {"Model ID", 1, {{"Model ID: Mac14,2", 9, regular, grey, 18, false}}},
        {"– Device management",
         7,
         {{"–", 11, bold, dim, 0, false},
          {"Device management (MDM)", 10.5, semibold, black, 18, false},
          {"Not run", 10.5, semibold, dim, 330, false}}},
        {"first", 1, {{"first", 9, regular, grey, 18, false}}},
        {"second", 1, {{"second", 9, regular, grey, 18, false}}},
        {"Note: with", 1, {{"Note: with a note", 10.5, regular, red, 18, true}}},
        {"– Activation Lock",
         7,
         {{"–", 11, bold, dim, 0, false},
          {"Activation Lock", 10.5, semibold, black, 18, false},
          {"Not finished", 10.5, semibold, dim, 330, false}}},
        {"– Keyboard", 7, {}},
        {"✓ Trackpad",
         7,
         {{"✓", 11, bold, green, 0, false},
          {"Trackpad", 10.5, semibold, black, 18, false},
          {"Works", 10.5, semibold, green, 330, false}}},
        {"✕ Display",
         7,
         {{"✕", 11, bold, red, 0, false},
          {"Display", 10.5, semibold, black, 18, false},
          {"Problem", 10.5, semibold, red, 330, false}}},
        {"Seller's notes", 17, {{"Seller's notes", 13, bold, black, 0, false}}},
        {"Small scuff", 4, {}},
        {"Before handover", 18, {{"Before handover (ticked by the seller)", 13, bold, black, 0, false}}},
        {"Ticked by the seller", 2, {}},
        {"☑ Back up",
         6,
         {{"☑", 11, regular, black, 0, false},
          {"Back up your files", 10.5, regular, black, 18, false},
          {"ticked by seller", 10.5, regular, black, 330, false}}},
        {"☑ Deauthorize", 3, {}},
        {"☐ Unpair", 3, {}},
        {"Last, after", 7, {}},
        {"Buyer: before", 2, {}},
        {"Check it yourself",
         -1,
         {{"Check it yourself at pickup (under 2 minutes)", 13, bold, black, 11, false}}},
        {"A PDF can be edited", 4, {}},
        {"1.", 6, {}},
        {"3. Device",
         3,
         {{"3.", 10.5, semibold, black, 11, false},
          {"Device management: ", 10.5, semibold, black, 29, false},
          {"Not enrolled", 10.5, regular, grey, -1, false}}},
        {"These are the results", -1, {}},
    };
    LaidOut document(everyStyle());
    for (const Row& row : rows) {
        const QTextBlock block = document.find(row.beginning);
        if (row.gapAbove >= 0) EXPECT_NEAR(document.gapAbove(block), row.gapAbove, 0.6) << row.beginning;
        const auto runs = document.runs(block);
        if (row.runs.empty()) continue;
        ASSERT_EQ(runs.size(), row.runs.size()) << row.beginning;
        for (std::size_t i = 0; i < runs.size(); ++i) {
            const SetRun &is = runs[i], &wanted = row.runs[i];
            EXPECT_EQ(is.text, wanted.text);
            EXPECT_EQ(is.size, wanted.size) << is.text;
            EXPECT_EQ(is.weight, wanted.weight) << is.text;
            EXPECT_EQ(is.color.rgb(), wanted.color.rgb()) << is.text;
            if (wanted.x >= 0) EXPECT_NEAR(is.x, wanted.x, 0.6) << is.text;
            EXPECT_EQ(is.italic, wanted.italic) << is.text;
        }
    }
}

TEST(ReportDocument, aHandoverThatIsAbsentLeavesNoGapAndAnEmptyOneItsFourLines) {
    ConditionReport report = sampleReport();
    report.handover.reset();
    const QString without = ReportDocument::make(report, textWidth)->toPlainText();
    EXPECT_FALSE(without.contains(QStringLiteral("andover")));
    EXPECT_FALSE(without.contains(QStringLiteral("Buyer")));
    report.handover.emplace();
    const QString empty = ReportDocument::make(report, textWidth)->toPlainText();
    EXPECT_EQ(empty.count(u'\n') - without.count(u'\n'), 4);
}

TEST(ReportDocument, longTextsAppearInTimeAndAreLostNeitherFromFileNorCopy) {
    ConditionReport report = sampleReport();
    for (const std::string& piece :
         {std::string("x"), std::string("word "), std::string("名"), std::string("😀 ")}) {
        std::string text;
        while (text.size() < 1'000'000)
            text += piece;
        report.results[0].summary = text;
        QElapsedTimer timer;
        timer.start();
        const auto document = ReportDocument::make(report, textWidth);
        EXPECT_GT(document->size().height(), 0);
        EXPECT_LT(timer.elapsed(), 2000) << piece;
        EXPECT_TRUE(document->toPlainText().contains(QStringLiteral("…\n")));
        EXPECT_FALSE(document->toPlainText().contains(QChar::ReplacementCharacter));
        EXPECT_NE(ReportText::text(report, {}).find(text), std::string::npos);
        EXPECT_EQ(HistoryStore::decode(HistoryStore::encode(report)), report);
    }
}

TEST(ReportDocument, hundredsOfResultsWithHundredsOfDetailsAppearInTime) {
    ConditionReport report = sampleReport();
    report.results.resize(500, report.results[0]);
    for (TestResult& result : report.results)
        result.details.assign(100, "a detail");
    QElapsedTimer timer;
    timer.start();
    EXPECT_GT(ReportDocument::make(report, textWidth)->size().height(), 500'000);
    // A sanitized or busy machine takes a few times as long; without one change for the layout it is minutes.
    EXPECT_LT(timer.elapsed(), 10'000);

    report.results.assign(300, report.results[0]);
    for (TestResult& result : report.results)
        result.summary.assign(50'000, 'x');
    timer.restart();
    const auto document = ReportDocument::make(report, textWidth);
    EXPECT_LT(document->characterCount(), ReportDocument::longestDocument + 100'000) << "all texts together";
    EXPECT_LT(timer.elapsed(), 10'000);
}

TEST(ReportPreview, isAsWideAsTheSheetSmallerToFitAndNamed) {
    ReportPreview preview;
    preview.setReport(sampleReport());
    EXPECT_EQ(preview.document(), nullptr) << "nothing is laid out unseen";
    pagetest::showAt(preview, preview.sizeHint());
    ASSERT_NE(preview.document(), nullptr);
    EXPECT_EQ(preview.accessibleName(), "Condition report for MacBook Air (M2, 2022)");
    EXPECT_TRUE(preview.spokenValue().contains(QStringLiteral("Seller's notes")));
    const int full = preview.heightForWidth(ReportPreview::sheetWidth);
    EXPECT_NEAR(full, preview.document()->size().height() / ReportDocument::unitsPerPoint + 100, 1);
    EXPECT_NEAR(preview.heightForWidth(ReportPreview::sheetWidth / 2), full / 2, 1);
    EXPECT_EQ(preview.heightForWidth(2000), full) << "never larger than paper";

    const QTextDocument* document = preview.document();
    ConditionReport again = sampleReport();
    again.id = Uuid::random();
    preview.setReport(again);
    EXPECT_EQ(preview.document(), document) << "another id reads the same";
    again.notes += " More.";
    preview.setReport(again);
    EXPECT_TRUE(preview.spokenValue().contains(QStringLiteral(" More.")));
}

TEST(ReportPreview, paperStaysWhiteAndItsTextDarkOnADarkDesktop) {
    const pagetest::DesktopLook dark(true);
    ReportPreview preview;
    preview.setReport(sampleReport());
    pagetest::showAt(preview, preview.sizeHint());
    const QImage image = preview.grab().toImage();
    EXPECT_EQ(image.pixelColor(20, 20), QColor(Qt::white));
    int darkest = 255;
    for (int x = 50; x < 300; ++x)
        for (int y = 60; y < 100; ++y)
            darkest = std::min(darkest, image.pixelColor(x, y).lightness());
    EXPECT_LT(darkest, 40);
}
