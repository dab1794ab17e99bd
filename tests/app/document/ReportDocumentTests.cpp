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

constexpr double textWidth = 512;

QString points(double units) {
    return QString::number(std::lround(units / ReportDocument::unitsPerPoint));
}

/// What differs from regular 10.5 in black: "[11 bold green]".
QString look(const QTextCharFormat& format) {
    static const std::map<QString, QString> colors = {
        {"#000000", ""},      {"#616161", "grey"},  {"#007354", "kicker"}, {"#cc2924", "red"},
        {"#1a8c4d", "green"}, {"#c77300", "amber"}, {"#737373", "dim"}};
    const QFont font = format.font();
    QStringList words;
    if (font.pointSizeF() != 10.5) words << QString::number(font.pointSizeF());
    if (font.weight() != QFont::Normal) words << (font.weight() == QFont::Bold ? "bold" : "semibold");
    if (font.italic()) words << "italic";
    if (font.families().value(0).contains("Mono")) words << "mono";
    const QString color = format.foreground().color().name();
    const auto known = colors.find(color);
    words << (known == colors.end() ? color : known->second);
    words.removeAll(QString());
    return words.isEmpty() ? QString() : " [" + words.join(' ') + "]";
}

/// The document as it is laid out, a line a paragraph: the room above it, and its runs, those at a tab stop
/// behind their distance from the left, all in points.
QStringList printed(const ConditionReport& report) {
    const auto document = ReportDocument::make(report, textWidth, "America/Los_Angeles");
    QStringList paragraphs;
    double bottom = 0;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        const QTextLayout& lines = *block.layout();
        const QPointF place = document->documentLayout()->blockBoundingRect(block).topLeft();
        QString text = "+" + points(place.y() + lines.lineAt(0).y() - bottom);
        const QTextLine last = lines.lineAt(lines.lineCount() - 1);
        bottom = place.y() + last.y() + last.height();
        for (auto run = block.begin(); !run.atEnd(); ++run) {
            const QTextFragment fragment = run.fragment();
            for (const QString& piece : fragment.text().split('\t', Qt::SkipEmptyParts)) {
                const int at = fragment.position() - block.position() + int(fragment.text().indexOf(piece));
                if (at == 0 || block.text().at(at - 1) == '\t')
                    text += " | " + points(place.x() + lines.lineForTextPosition(at).cursorToX(at));
                text += " " + piece.trimmed() + look(fragment.charFormat());
            }
        }
        paragraphs << text;
    }
    return paragraphs;
}

/// A short report in which each style of the document occurs.
ConditionReport everyStyle() {
    ConditionReport report = sampleReport();
    report.results.resize(allCases<TestStatus>().size());
    for (std::size_t i = 0; i < report.results.size(); ++i) {
        report.results[i].status = allCases<TestStatus>()[i];
        report.results[i].details.clear();
    }
    report.results[1].details = {"first", "", "second"};
    report.results[1].note = "with a note";
    report.pickup.resize(3);
    return report;
}

} // namespace

TEST(ReportDocument, setsEachStyleToThePoint) {
    EXPECT_EQ("\n" + printed(everyStyle()).join("\n").toStdString(), R"(
+0 | 0 CONDITION REPORT [9 bold kicker]
+2 | 0 MacBook Air (M2, 2022) [20 bold]
+4 | 0 Tested March 5, 2026 at 4:07 PM PST with Tessivo 1.0 [grey]
+11 | 0 Serial number [grey] | 110 J4N7WQX2PL [11 semibold mono]
+1 | 0 Model ID [grey] | 110 Mac14,2
+2 | 0 Chip [grey] | 110 Apple M2
+2 | 0 Memory [grey] | 110 16 GB
+2 | 0 Storage [grey] | 110 512 GB
+2 | 0 macOS [grey] | 110 macOS 26.1 (25B78)
+14 | 0 Results: 1 work, 1 problem, 1 to check by hand, 2 not finished, 1 not included [13 bold]
+14 | 0 – [11 bold dim] | 18 Model and serial number [semibold] | 330 Not run [semibold dim]
+1 | 18 MacBook Air (M2, 2022), serial J4N7WQX2PL
+7 | 0 – [11 bold dim] | 18 Device management (MDM) [semibold] | 330 Not finished [semibold dim]
+1 | 18 Not enrolled in device management
+1 | 18 first [9 grey]
+1 | 18 second [9 grey]
+1 | 18 Note: with a note [italic red]
+7 | 0 ✓ [11 bold green] | 18 Activation Lock [semibold] | 330 Works [semibold green]
+1 | 18 System Information showed Disabled
+7 | 0 ✕ [11 bold red] | 18 Keyboard [semibold] | 330 Problem [semibold red]
+1 | 18 Every key works (77 keys, plus 3 checks by hand)
+7 | 0 ? [11 bold amber] | 18 Trackpad [semibold] | 330 Check by hand [semibold amber]
+1 | 18 Whole surface, click, secondary click and scrolling work
+7 | 0 – [11 bold dim] | 18 Display [semibold] | 330 Not included [semibold dim]
+1 | 18 Dead or stuck pixels seen
+1 | 18 Note: One green dot stays lit near the left edge, about 3 cm from the top. It only shows on black. [italic red]
+17 | 0 Seller's notes [13 bold]
+4 | 0 Small scuff on the bottom left corner, no dents. Comes with the original 30 W charger and the MagSafe cable.
+18 | 0 Before handover (ticked by the seller) [13 bold]
+2 | 0 Ticked by the seller on this Mac. Tessivo can't see iCloud, Find My, Music or Bluetooth, so it doesn't check these. [9 grey]
+6 | 0 ☑ [11] | 18 Back up your files | 330 ticked by seller
+3 | 0 ☑ [11] | 18 Deauthorize this Mac for your purchases | 330 ticked by seller
+3 | 0 ☑ [11] | 18 Turn off Find My Mac | 330 ticked by seller
+3 | 0 ☑ [11] | 18 Sign out of your Apple Account (iCloud) | 330 ticked by seller
+3 | 0 ☐ [11] | 18 Unpair Bluetooth accessories you're keeping | 330 not ticked
+7 | 0 Last, after this report: the seller erases the Mac (Erase All Content and Settings).
+2 | 0 Buyer: before the erase, ask the seller to show Activation Lock Status: Disabled in System Information (Hardware), then to erase the Mac in front of you. Setup should not ask for the seller's Apple Account.
+2 | 0  [8]
+17 | 11 Check it yourself at pickup (under 1 minute) [13 bold]
+4 | 11 A PDF can be edited, so don't take this report's word for it. On this Mac, compare these with the report: [grey]
+6 | 11 1. [semibold] | 29 Open Tessivo on this Mac and choose Check at Pickup: [semibold] It shows this Mac's serial number and opens each quick test [grey]
+3 | 11 2. [semibold] | 29 Model and serial number: [semibold] Model ID Mac14,2, serial J4N7WQX2PL; About This Mac shows the same serial [grey]
+3 | 11 3. [semibold] | 29 Device management: [semibold] Not enrolled [grey]
+25 | 0 These are the results of tests run on this Mac on the date shown, by the person who ran them. Some answers were given by hand. Anyone can rerun the tests to compare. [8.5 grey])");
}

TEST(ReportDocument, longTextsAppearInTimeAndAreLostNeitherFromFileNorCopy) {
    ConditionReport report = sampleReport();
    for (const std::string piece : {"x", "word ", "名", "😀 "}) {
        std::string text;
        while (text.size() < 1'000'000)
            text += piece;
        report.results[0].summary = text;
        QElapsedTimer timer;
        timer.start();
        const auto document = ReportDocument::make(report, textWidth);
        EXPECT_GT(document->size().height(), 0);
        EXPECT_LT(timer.elapsed(), 2000) << piece;
        EXPECT_TRUE(document->toPlainText().contains("…\n"));
        EXPECT_FALSE(document->toPlainText().contains(QChar::ReplacementCharacter));
        EXPECT_NE(ReportText::text(report, {}).find(text), std::string::npos);
        EXPECT_EQ(HistoryStore::decode(HistoryStore::encode(report)), report);
    }
}

TEST(ReportDocument, manyTextsAppearInTime) {
    struct Row {
        std::size_t results, details, length; ///< of each summary and detail
        int least;                            ///< height in points that must be there
    };
    for (const Row& row : {Row{500, 100, 8, 500'000}, {300, 0, 50'000, 50'000}, {2, 400'000, 1, 500'000}}) {
        ConditionReport report = sampleReport();
        report.results[0].summary.assign(row.length, 'x');
        report.results[0].details.assign(row.details, std::string(row.length, 'x'));
        report.results.assign(row.results, report.results[0]);
        QElapsedTimer timer;
        timer.start();
        const auto document = ReportDocument::make(report, textWidth);
        EXPECT_GT(document->size().height() / ReportDocument::unitsPerPoint, row.least);
        // A sanitized or busy machine takes a few times as long; without bounds it is minutes.
        EXPECT_LT(timer.elapsed(), 10'000) << row.results;
        EXPECT_LT(document->characterCount(), ReportDocument::longestDocument + 100'000) << row.results;
    }
}

TEST(ReportPreview, isAsWideAsTheSheetSmallerToFitAndNamed) {
    ReportPreview preview;
    preview.setReport(sampleReport());
    EXPECT_EQ(preview.document(), nullptr) << "nothing is laid out unseen";
    pagetest::showAt(preview, preview.sizeHint());
    ASSERT_NE(preview.document(), nullptr);
    EXPECT_EQ(preview.accessibleName(), "Condition report for MacBook Air (M2, 2022)");
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
    EXPECT_TRUE(preview.spokenValue().contains(" More."));
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
