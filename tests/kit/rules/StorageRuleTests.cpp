#include "kit/rules/Rules.h"
#include "tests/kit/rules/Printed.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(StorageRule, comparesDriveModelAndListing) {
    struct Row {
        std::optional<std::int64_t> bytes;
        const char* modelID;
        std::optional<std::int64_t> listed;
        std::string expected;
    };
    const std::string air = " | Sold with: 256 GB, 512 GB, 1 TB, 2 TB";
    const std::string iMac =
        " | Sold with: 256 GB, 1 TB (1 TB as a Fusion Drive) | This model's drive can be "
        "replaced, so it may not be the one it was sold with.";
    const std::string split = " | The drive may be split into parts; Disk Utility shows them.";
    const std::int64_t drive256 = 245'107'195'904;
    const std::int64_t drive512 = 494'384'795'648;
    const std::int64_t drive1TB = 994'662'584'320;
    const std::vector<Row> rows = {
        {{},
         "Mac14,2",
         256,
         "checkByHand: Couldn't read the drive size | Apple menu › About This Mac › More Info › Storage "
         "shows it."},
        {300'000'000'000, "Mac14,2", 256,
         "checkByHand: 300 GB isn't a standard size | macOS reports 300 GB for the startup drive" + air +
             " | Listing says: 256 GB" + split},
        {drive256,
         "Mac14,2",
         {},
         "works: 256 GB drive, a size this model was sold with | macOS reports 245 GB for the startup drive" +
             air},
        {drive256, "Mac14,2", 256,
         "works: 256 GB drive, a size this model was sold with | macOS reports 245 GB for the startup drive" +
             air + " | Listing says: 256 GB"},
        {drive256, "Mac14,2", 512,
         "problem: 256 GB drive, but the listing says 512 GB | macOS reports 245 GB for the startup drive" +
             air + " | Listing says: 512 GB"},
        {128'000'000'000, "Mac14,2", 128,
         "problem: 128 GB drive, a size this model wasn't sold with | macOS reports 128 GB for the startup "
         "drive" +
             air + " | Listing says: 128 GB"},
        {drive512, "iMac19,2", 1024,
         "checkByHand: 512 GB drive, a size this model wasn't sold with. Ask whether it was replaced. | "
         "macOS reports 494 GB for the startup drive" +
             iMac + " | Listing says: 1 TB"},
        {drive256,
         "iMac19,2",
         {},
         "works: 256 GB drive, a size this model was sold with | macOS reports 245 GB for the startup drive" +
             iMac},
        {1'128'000'000'000, "iMac19,2", 1024,
         "works: 1 TB drive, a size this model was sold with | macOS reports 1.1 TB for the startup drive" +
             iMac + " | Listing says: 1 TB"},
        {1'128'000'000'000, "Mac17,1", 1024,
         "checkByHand: 1.1 TB isn't a standard size | macOS reports 1.1 TB for the startup drive | "
         "Listing says: 1 TB" +
             split},
        {drive512,
         "Mac17,1",
         {},
         "checkByHand: 512 GB drive. Compare it with the listing. | macOS reports 494 GB for the startup "
         "drive"},
        {drive1TB, "Mac17,1", 1024,
         "works: 1 TB drive, as listed | macOS reports 995 GB for the startup drive | Listing says: 1 TB"},
        {drive1TB, "Mac17,1", 1000,
         "problem: 1 TB drive, but the listing says 1000 GB | macOS reports 995 GB for the startup drive | "
         "Listing says: 1000 GB"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(printed(Rules::storage(row.bytes, SpecCatalog::spec(row.modelID), row.listed)),
                  row.expected);
}

TEST(StorageRule, aRowWithoutSizesCallsEverySizeForeign) {
    ModelSpec row;
    EXPECT_EQ(Rules::storage(512'000'000'000, &row, 512).status, TestStatus::problem);
    row.replaceableStorage = true;
    EXPECT_EQ(Rules::storage(512'000'000'000, &row, 512).status, TestStatus::checkByHand);
}

} // namespace
} // namespace tessivo
