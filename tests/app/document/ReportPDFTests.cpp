#include "app/document/ReportPrinting.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/document/DocumentTesting.h"

#include <QRegularExpression>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/resource.h>

using namespace tessivo;
using namespace tessivo::documenttest;

namespace {

const QPageSize letter(QPageSize::Letter);
constexpr const char* pacific = "America/Los_Angeles";

std::string pdfOf(const ConditionReport& report, const QPageSize& paper = letter) {
    return ReportPrinting::pdf(report, paper, pacific);
}

/// While it lives no file grows beyond this size, as on a disk without room.
class FullDisk final {
public:
    explicit FullDisk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit bound{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &bound);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before{};
};

class EveryMachinesPDF : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Machines, EveryMachinesPDF, testing::ValuesIn(machineFiles()), [](const auto& info) {
    std::string name = info.param.substr(0, info.param.find('.'));
    std::ranges::replace(name, '-', '_');
    return name;
});

} // namespace

TEST_P(EveryMachinesPDF, holdsEveryLineInOrderOnBothPapers) {
    ConditionReport report = reportOf(GetParam());
    for (const auto paper : {QPageSize::Letter, QPageSize::A4})
        EXPECT_EQ(firstMissing(readText(pdfOf(report, QPageSize(paper))), linesOf(report, pacific)), "");
    report.notes.clear();
    report.handover.reset();
    const QString bare = readText(pdfOf(report));
    EXPECT_EQ(firstMissing(bare, linesOf(report, pacific)), "");
    EXPECT_FALSE(bare.contains(QStringLiteral("Seller's notes")));
    EXPECT_FALSE(bare.contains(QStringLiteral("Before handover")));
}

TEST(ReportPDF, embedsAFewFacesNamesItselfAndLinksNowhere) {
    ConditionReport report = sampleReport();
    report.notes = "See https://example.com or file:///etc/passwd";
    const std::string pdf = pdfOf(report);
    const QStringList fonts = poppler("pdffonts", {}, pdf).split(u'\n', Qt::SkipEmptyParts).sliced(2);
    EXPECT_LE(fonts.size(), 7) << fonts.join(u'\n').toStdString();
    for (const QString& font : fonts)
        EXPECT_TRUE(
            font.contains(QRegularExpression(QStringLiteral(" yes +(yes|no) +yes ")))) // embedded, searchable
            << font.toStdString();
    EXPECT_TRUE(singleSpaced(poppler("pdfinfo", {}, pdf))
                    .contains(QStringLiteral("Title: Condition Report J4N7WQX2PL ")));
    for (const char* link : {"/URI", "/Link", "/Launch"})
        EXPECT_EQ(pdf.find(link), std::string::npos) << link;
    EXPECT_LT(pdf.size(), 200'000u);
}

TEST(ReportPDF, printsAsTypedWhateverANoteHolds) {
    const char* const kept[] = {"<img src=file:///etc/passwd> <b>bold</b> &amp; <script>",
                                "Größe (3,5 cm): naïve — “quoted”",
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
        EXPECT_TRUE(read.contains(QString::fromUtf8(text))) << text << " in " << read.left(700).toStdString();
    EXPECT_EQ(firstMissing(read, linesOf(report, pacific)), "");
}

TEST(ReportPDF, setsForeignNamesBesideWordsThatStaySearchable) {
    ConditionReport report = sampleReport();
    report.machine.modelID = "名前 (テスト): Mac";
    report.results[0].note = "اسم (x): 😀 e\u0301t — done";
    const QString read = readText(pdfOf(report));
    for (const char* text : {"(", "): Mac", "Note:", "— done", "é"})
        EXPECT_TRUE(read.contains(QString::fromUtf8(text)) ||
                    read.normalized(QString::NormalizationForm_C).contains(QString::fromUtf8(text)))
            << text;
    // The letters of a joined script come as the forms they are drawn in.
    EXPECT_TRUE(read.normalized(QString::NormalizationForm_KC).contains(QStringLiteral("اسم")) ||
                read.normalized(QString::NormalizationForm_KC).contains(QStringLiteral("مسا")))
        << read.left(400).toStdString();
}

TEST(ReportPDF, controlCharactersNeitherBreakNorHideAnything) {
    ConditionReport report = sampleReport();
    report.results[0].summary =
        std::string("a\0b\x01\x1b[31m\r\nsee\fdot\x7f", 19) + "\u2029e\uFDD0f\uFDD1g\uFFFCh";
    report.notes = "\xff\xfe broken bytes";
    const QString read = readText(pdfOf(report));
    for (const char* text : {"a b", "[31m", "see dot", "e", "broken bytes", "Check it yourself at pickup"})
        EXPECT_TRUE(read.contains(QString::fromUtf8(text))) << text << " in " << read.left(700).toStdString();
}

TEST(ReportPDF, emptyListsGiveADocumentThatStillSaysWhatItIs) {
    ConditionReport report = sampleReport();
    report.results.clear();
    report.pickup.clear();
    report.handover.emplace();
    report.notes.clear();
    report.machine = {};
    const QString read = readText(pdfOf(report));
    EXPECT_EQ(firstMissing(read, linesOf(report, pacific)), "");
    EXPECT_TRUE(read.contains(QStringLiteral("(under 1 minute)")));
}

TEST(ReportPDF, losesNothingOfAVeryLongText) {
    ConditionReport report = sampleReport();
    std::string words;
    for (int i = 0; words.size() < 120'000; ++i)
        words += "word" + std::to_string(i) + " ";
    report.results[0].summary = words + "END";
    EXPECT_EQ(firstMissing(readText(pdfOf(report)), linesOf(report, pacific)).left(40), "");
}

TEST(ReportPDF, breaksPagesBetweenLinesAndPrintsNoneTwice) {
    static const QRegularExpression word(
        QStringLiteral("<word [^>]*yMin=\"([0-9.]+)\"[^>]*yMax=\"([0-9.]+)\""));
    // The end of a page wanders through the notes and the box, which is longer than a page at last.
    for (const auto& [lines, steps] :
         {std::pair(0, 8), {7, 8}, {14, 8}, {21, 8}, {28, 8}, {3, 30}, {0, 90}}) {
        ConditionReport report = sampleReport();
        for (int i = 0; i < lines; ++i)
            report.notes += "\nline " + std::to_string(i);
        report.pickup.clear();
        for (int i = 0; i < steps; ++i)
            report.pickup.push_back({"Step" + std::to_string(i), "as expected", 1});
        const std::string pdf = pdfOf(report);
        const QString read = readText(pdf);
        for (const PickupStep& step : report.pickup)
            EXPECT_EQ(read.count(QString::fromStdString(step.title + ": ")), 1) << step.title;
        for (int i = 0; i < lines; ++i)
            EXPECT_EQ(read.count(QStringLiteral("line %1 ").arg(i)), 1) << i;
        for (auto match = word.globalMatch(poppler("pdftotext", {QStringLiteral("-bbox")}, pdf));
             match.hasNext();) {
            const auto found = match.next();
            EXPECT_GE(found.captured(1).toDouble(), 45) << lines << " " << steps;
            EXPECT_LE(found.captured(2).toDouble(), 792 - 45) << lines << " " << steps;
        }
    }
}

TEST(ReportPDF, leavesNoHeadingBehindOnItsPage) {
    int moved = 0;
    for (int details = 0; details < 24; ++details) {
        ConditionReport report = sampleReport();
        report.results[0].details.assign(std::size_t(details), "a detail");
        const QStringList pages =
            poppler("pdftotext", {QStringLiteral("-layout")}, pdfOf(report)).split(u'\f', Qt::SkipEmptyParts);
        ASSERT_GE(pages.size(), 2);
        for (const QString& page : pages) {
            const QString last = page.trimmed().section(u'\n', -1).simplified();
            EXPECT_FALSE(last.startsWith(u'✓') || last.startsWith(u'✕')) << details << last.toStdString();
            EXPECT_NE(last, "Seller's notes") << details;
            EXPECT_FALSE(last.startsWith(QStringLiteral("Before handover"))) << details;
            moved += page.trimmed().startsWith(u'✓');
        }
    }
    EXPECT_GE(moved, 3) << "some would have stood at the end";
}

TEST(ReportPDF, onAFullDiskNoFileStandsUnderTheNameAndAnOldOneStays) {
    const TemporaryFolder folder;
    const ConditionReport report = sampleReport();
    const auto file = folder / "Report.pdf";
    for (const rlim_t room : {0, 1, 4096, 20'000}) {
        const FullDisk disk(room);
        EXPECT_FALSE(ReportPrinting::savePDF(report, letter, file)) << room;
        EXPECT_THAT(namesIn(folder.path()), testing::IsEmpty()) << room;
    }
    folder.write("Report.pdf", "the one before");
    {
        const FullDisk disk(4096);
        EXPECT_FALSE(ReportPrinting::savePDF(report, letter, file));
    }
    EXPECT_EQ(bytesOf(file), "the one before");
    EXPECT_TRUE(ReportPrinting::savePDF(report, letter, file));
    EXPECT_TRUE(bytesOf(file).starts_with("%PDF"));
    EXPECT_EQ(namesIn(folder.path()).size(), 1u);
    EXPECT_FALSE(ReportPrinting::savePDF(report, letter, folder / "no such folder" / "a.pdf"));
    EXPECT_FALSE(ReportPrinting::savePDF(report, letter, folder.path()));
}

TEST(ReportPDF, paperTooSmallForTheMarginsIsRefused) {
    const QPageSize stamp(QSizeF(90, 90), QPageSize::Point);
    EXPECT_THROW(pdfOf(sampleReport(), stamp), std::runtime_error);
    const QPageSize small(QSizeF(200, 300), QPageSize::Point);
    EXPECT_EQ(firstMissing(readText(pdfOf(sampleReport(), small)), {QStringLiteral("CONDITION REPORT")}), "");
}
