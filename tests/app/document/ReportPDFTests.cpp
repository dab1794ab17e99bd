#include "app/document/ReportPrinting.h"
#include "tests/FullDisk.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/document/DocumentTesting.h"

#include <QRegularExpression>
#include <gmock/gmock.h>

using namespace tessivo;
using namespace tessivo::documenttest;

namespace {

const QPageSize letter(QPageSize::Letter);
constexpr const char* pacific = "America/Los_Angeles";

std::string pdfOf(const ConditionReport& report, const QPageSize& paper = letter) {
    return ReportPrinting::pdf(report, paper, pacific);
}

/// What a PDF of the report lacks of the report's lines; empty if it has all, in order.
QString missingIn(const ConditionReport& report, const QPageSize& paper = letter) {
    return firstMissing(readText(pdfOf(report, paper)), linesOf(report, pacific)).left(400);
}

class EveryMachinesPDF : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Machines, EveryMachinesPDF, testing::ValuesIn(machineFiles()), [](const auto& info) {
    std::string name = info.param.substr(0, info.param.find('.'));
    std::ranges::replace(name, '-', '_');
    return name;
});

} // namespace

TEST_P(EveryMachinesPDF, holdsEveryLineInOrderOnBothPapers) {
    const ConditionReport report = reportOf(GetParam());
    EXPECT_EQ(missingIn(report), "");
    EXPECT_EQ(missingIn(report, QPageSize(QPageSize::A4)), "");
}

TEST(ReportPDF, embedsAFewFacesNamesItselfAndLinksNowhere) {
    ConditionReport report = sampleReport();
    report.notes = "See https://example.com or file:///etc/passwd";
    const std::string pdf = pdfOf(report);
    const QStringList fonts = poppler("pdffonts", {}, pdf).split('\n', Qt::SkipEmptyParts).sliced(2);
    EXPECT_LE(fonts.size(), 7) << fonts.join('\n').toStdString();
    static const QRegularExpression embeddedAndSearchable(" yes +(yes|no) +yes ");
    for (const QString& font : fonts)
        EXPECT_TRUE(font.contains(embeddedAndSearchable)) << font.toStdString();
    EXPECT_TRUE(poppler("pdfinfo", {}, pdf).simplified().contains("Title: Condition Report J4N7WQX2PL "));
    for (const char* link : {"/URI", "/Link", "/Launch"})
        EXPECT_EQ(pdf.find(link), std::string::npos) << link;
    EXPECT_LT(pdf.size(), 200'000u);
}

TEST(ReportPDF, printsAsTypedWhateverANoteHolds) {
    const char* const kept[] = {"<img src=file:///etc/passwd> <b>bold</b> &amp; <script>",
                                "Größe (3,5 cm): naïve — “quoted”, that’s ‘it’",
                                "100% %1 %s \\n {} $HOME",
                                "Ünïcödé ☑ ✕",
                                "https://example.com/?a=b",
                                "two lines stay"};
    ConditionReport report = sampleReport();
    for (const char* text : kept)
        report.notes += std::string(text) + "\n";
    report.results[0].note = kept[0];
    report.results[1].details.push_back(kept[0]);
    report.machine.modelID = kept[0];
    const QString read = readText(pdfOf(report));
    for (const char* text : kept)
        EXPECT_TRUE(read.contains(text)) << text << " in " << read.left(700).toStdString();
    EXPECT_EQ(missingIn(report), "");
}

TEST(ReportPDF, foreignNamesAndControlCharactersLeaveTheWordsAroundThemSearchable) {
    ConditionReport report = sampleReport();
    report.machine.modelID = "名前 (テスト): Mac";
    report.results[0].summary =
        std::string("a\0b\x01\x1b[31m\r\nsee\fdot\x7f", 19) + "\u2029e\uFDD0f\uFDD1g\uFFFCh";
    report.results[0].note = "اسم (x): 😀 e\u0301t — done";
    report.notes = "\xff\xfe broken bytes";
    const QString read = readText(pdfOf(report)).normalized(QString::NormalizationForm_C);
    for (const char* text : {"(", "): Mac", "a b", "[31m", "see dot", "Note:", "— done", "é", "broken bytes",
                             "Check it yourself at pickup"})
        EXPECT_TRUE(read.contains(text)) << text << " in " << read.left(700).toStdString();
    // The letters of a joined script come as the forms they are drawn in, in either order.
    const QString letters = read.normalized(QString::NormalizationForm_KC);
    EXPECT_TRUE(letters.contains("اسم") || letters.contains("مسا")) << read.left(400).toStdString();
}

TEST(ReportPDF, anEmptyReportStillSaysWhatItIsAndWhatWasNotRead) {
    const QString read = readText(pdfOf({}));
    for (const char* text : {"CONDITION REPORT Tested ", "Serial number Not read", "Chip —", "Storage —",
                             "Check it yourself at pickup (under 1 minute)", "These are the results"})
        EXPECT_TRUE(read.contains(text)) << text << " in " << read.toStdString();
    for (const char* text : {"Seller's notes", "Before handover", "Buyer"})
        EXPECT_FALSE(read.contains(text)) << text;
}

TEST(ReportPDF, losesNothingOfAVeryLongText) {
    ConditionReport report = sampleReport();
    report.results[0].summary.clear();
    for (int i = 0; report.results[0].summary.size() < 120'000; ++i)
        report.results[0].summary += "word" + std::to_string(i) + " ";
    EXPECT_EQ(missingIn(report), "");
}

TEST(ReportPDF, breaksPagesBetweenLinesAndPrintsNoneTwice) {
    static const QRegularExpression word("<word [^>]*yMin=\"([0-9.]+)\"[^>]*yMax=\"([0-9.]+)\"");
    // The end of a page wanders through the notes and the box, which is longer than a page at last.
    for (const auto& [lines, steps] :
         {std::pair(0, 8), {7, 8}, {14, 8}, {21, 8}, {28, 8}, {3, 30}, {0, 90}}) {
        SCOPED_TRACE(std::to_string(lines) + " lines, steps: " + std::to_string(steps));
        ConditionReport report = sampleReport();
        report.pickup.clear();
        QStringList once;
        for (int i = 0; i < lines; ++i) {
            once << QString("line %1 ").arg(i);
            report.notes += "\n" + once.last().toStdString();
        }
        for (int i = 0; i < steps; ++i) {
            once << QString("Step%1: ").arg(i);
            report.pickup.push_back({"Step" + std::to_string(i), "as expected", 1});
        }
        const std::string pdf = pdfOf(report);
        const QString read = readText(pdf);
        for (const QString& text : once)
            EXPECT_EQ(read.count(text), 1) << text.toStdString();
        for (auto match = word.globalMatch(poppler("pdftotext", {"-bbox"}, pdf)); match.hasNext();) {
            const auto found = match.next();
            EXPECT_GE(found.captured(1).toDouble(), 45);
            EXPECT_LE(found.captured(2).toDouble(), 792 - 45);
        }
    }
}

TEST(ReportPDF, breaksPagesWhereTheyAreFullAlsoBehindAHeading) {
    static const QRegularExpression heading("^(✓|✕|Seller's notes$|Before handover)");
    int last = 0;
    for (std::size_t details = 0; details < 24; ++details) {
        ConditionReport report = sampleReport();
        report.results[0].details.assign(details, "a detail");
        const QStringList pages =
            poppler("pdftotext", {"-layout"}, pdfOf(report)).split('\f', Qt::SkipEmptyParts);
        ASSERT_GE(pages.size(), 2);
        for (const QString& page : pages)
            last += page.trimmed().section('\n', -1).simplified().contains(heading);
    }
    EXPECT_GE(last, 3) << "no break is forced";
}

TEST(ReportPDF, aFailedSaveTellsWhyAndLeavesWhatWasThere) {
    const TemporaryFolder folder;
    const auto file = folder / "Report.pdf";
    const auto save = [](const std::filesystem::path& as) {
        return ReportPrinting::savePDF(sampleReport(), letter, as);
    };
    for (const rlim_t room : {0, 1, 4096, 20'000}) {
        const FullDisk disk(room);
        EXPECT_EQ(save(file), SaveFault::noRoom) << room;
        EXPECT_THAT(namesIn(folder.path()), testing::IsEmpty()) << room;
    }
    folder.write("Report.pdf", "the one before");
    {
        const FullDisk disk(4096);
        EXPECT_EQ(save(file), SaveFault::noRoom);
    }
    EXPECT_EQ(bytesOf(file), "the one before");
    EXPECT_EQ(save(file), std::nullopt);
    EXPECT_TRUE(bytesOf(file).starts_with("%PDF"));
    EXPECT_EQ(namesIn(folder.path()).size(), 1u);
    EXPECT_EQ(save(folder / "no such folder" / "a.pdf"), SaveFault::other);
    EXPECT_EQ(save(folder.path()), SaveFault::other);
    EXPECT_EQ(save("/sys/a.pdf"), SaveFault::notAllowed) << "where nobody makes a file, root included";
}

TEST(ReportPDF, paperTooSmallForTheMarginsIsRefused) {
    EXPECT_THROW(pdfOf(sampleReport(), QPageSize(QSizeF(90, 90), QPageSize::Point)), std::runtime_error);
    const QPageSize small(QSizeF(200, 300), QPageSize::Point);
    EXPECT_TRUE(readText(pdfOf(sampleReport(), small)).contains("CONDITION REPORT"));
}
