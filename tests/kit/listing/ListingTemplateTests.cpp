#include "tests/TemporaryFolder.h"
#include "tests/kit/listing/ListingReports.h"

#include <gtest/gtest.h>

using namespace tessivo;
using ListingReports::writeUp;
using Facts = std::vector<std::string>;

namespace {

std::string golden(const std::string& name) {
    return bytesOf(TESSIVO_TEST_DATA "/listings/" + name);
}

bool has(const ListingWriteUp& made, const std::string& text) {
    return made.text.find(text) != std::string::npos;
}

} // namespace

TEST(ListingTemplate, copiesEveryFactOfTheReportProblemsFirst) {
    const ListingWriteUp made = writeUp(ListingReports::mixed());
    EXPECT_EQ(made.text + "\n", golden("mixed-en.txt"));
    EXPECT_EQ(made.headline, "MacBook Air (M2, 2022): Apple M2, 16 GB memory, 512 GB storage");
    EXPECT_EQ(made.facts.fixed,
              (Facts{"MacBook Air (M2, 2022)", "16 GB", "Mac14,2", "macOS 26.1 (25B78)", "Apple M2", "512 GB",
                     "March 5, 2026", "The “N” key sticks — often", "A dark dot near the edge",
                     "Activation Lock", "Speakers", "Cameras", "Headphone jack",
                     "Works great for school.\nComes with its box & a %@ sticker."}));
    EXPECT_EQ(made.facts.numbers, (Facts{"1000", "14,2", "143", "16", "2", "2022", "2026", "25", "26.1",
                                         "4563", "5", "512", "78", "90"}));
    EXPECT_EQ(made.facts.problems, 2);
    EXPECT_EQ(made.language, "en");
}

TEST(ListingTemplate, translatesItsOwnWordsAndNothingOfTheReport) {
    const ListingWriteUp made = writeUp(ListingReports::mixed(), "es", true);
    EXPECT_EQ(made.text + "\n", golden("mixed-es-serial.txt"));
    EXPECT_EQ(made.language, "es");
    EXPECT_EQ(made.facts.fixed,
              (Facts{"MacBook Air (M2, 2022)", "16 GB", "Mac14,2", "macOS 26.1 (25B78)", "Apple M2", "512 GB",
                     "5 de marzo de 2026", "The “N” key sticks — often", "A dark dot near the edge",
                     "Bloqueo de activación", "Altavoces", "Cámaras", "Entrada para auriculares",
                     "Works great for school.\nComes with its box & a %@ sticker.", "J4N7WQX2PL"}));
}

TEST(ListingTemplate, leavesNothingBehindOfWhatIsAbsent) {
    const ListingWriteUp made = writeUp(ListingReports::clean());
    EXPECT_EQ(made.text + "\n", golden("clean-en.txt"));
    EXPECT_EQ(made.headline, "Mac99,7: 16 GB memory");
    EXPECT_EQ(made.facts.problems, 0);
    EXPECT_EQ(made.facts.fixed, (Facts{"Mac99,7", "16 GB", "macOS 26.1 (25B78)", "March 5, 2026"}));

    const ListingWriteUp bare =
        writeUp(ListingReports::with({{TestID::identity, TestStatus::works, "Fine", {}, {}}}));
    EXPECT_EQ(bare.facts.problems, 0);
    EXPECT_TRUE(has(bare, "Problems found: none in the tests that were run.\n\nSpecs:\n"));
    EXPECT_FALSE(has(bare, "Model and serial number"));
}

TEST(ListingTemplate, theSerialIsTheSellersChoice) {
    ConditionReport report = ListingReports::clean();
    EXPECT_FALSE(has(writeUp(report), *report.machine.serial));
    const ListingWriteUp made = writeUp(report, "en", true);
    EXPECT_TRUE(has(made, "- macOS: macOS 26.1 (25B78)\n- Serial number: J4N7WQX2PL\n\nAt pickup"));
    EXPECT_EQ(made.facts.fixed.back(), "J4N7WQX2PL");
    report.machine.serial = std::nullopt;
    EXPECT_EQ(writeUp(report, "en", true), writeUp(report));
}

TEST(ListingTemplate, factsAreNeitherEmptyNorTwice) {
    const auto problem = [](TestID test, const char* note) {
        return TestResult{test, TestStatus::problem, "By rule", {}, note};
    };
    ConditionReport report =
        ListingReports::with({problem(TestID::display, "Cracked"), problem(TestID::ports, "Cracked"),
                              problem(TestID::cameras, "")});
    report.machine.chip = report.machine.osVersion = "";
    const ListingWriteUp made = writeUp(report);
    EXPECT_EQ(made.facts.fixed,
              (Facts{"MacBook Air (M2, 2022)", "16 GB", "Mac14,2", "512 GB", "March 5, 2026", "Cracked"}));
    EXPECT_EQ(made.facts.problems, 3);
    EXPECT_TRUE(has(made, "- Display: Cracked\n- USB ports: Cracked\n- Cameras: \n\nSpecs:"));
    EXPECT_TRUE(has(made, "MacBook Air (M2, 2022): , 16 GB memory"));
    EXPECT_FALSE(has(made, "By rule"));
}

TEST(ListingTemplate, hostileTextsStayAsTheyAre) {
    std::string notes("%@ %s\0end\r\n\u202Eabc\n", 18);
    notes.append(1 << 20, 'x');
    ConditionReport report = ListingReports::with(
        {{TestID::ports, TestStatus::problem, "Loose\n- Display: Works", {}, std::nullopt}}, notes);
    report.machine.modelID = "%@";
    const ListingWriteUp made = writeUp(report, "es");
    EXPECT_TRUE(has(made, "Notas del vendedor:\n" + notes + "\n\nEspecificaciones:\n- Modelo: %@\n"));
    EXPECT_TRUE(made.facts.fixed.back() == notes); // a megabyte makes no readable failure
}
