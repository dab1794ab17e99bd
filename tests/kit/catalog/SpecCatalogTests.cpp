#include "kit/catalog/StorageCheck.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <set>

namespace tessivo {
namespace {

TEST(SpecCatalog, everyRowIsWholeAndFoundByItsIdentifiersAlone) {
    std::set<std::string> ids, names;
    for (const ModelSpec& row : SpecCatalog::models()) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(names.insert(row.name).second);
        EXPECT_FALSE(row.ids.empty());
        EXPECT_FALSE(row.storage.empty());
        EXPECT_TRUE(std::ranges::is_sorted(row.storage));
        EXPECT_TRUE(std::ranges::includes(row.storage, row.fusion));
        EXPECT_TRUE(std::ranges::includes(StorageCheck::standardSizes(), row.storage));
        EXPECT_EQ(row.processor == Processor::appleSilicon, row.sources.empty());
        for (const std::string& id : row.ids) {
            EXPECT_TRUE(ids.insert(id).second) << id;
            EXPECT_EQ(SpecCatalog::spec(id), &row) << id;
        }
    }
    EXPECT_EQ(SpecCatalog::byID().size(), ids.size());
}

TEST(SpecCatalog, keepsTheIrregularRows) {
    using Sizes = std::vector<std::int64_t>;
    const std::tuple<const char*, Sizes, Sizes> rows[] = {
        {"MacBookAir8,1", {128, 256, 512, 1536}, {}},
        {"iMac19,2", {256, 1024}, {1024}},
        {"iMac19,1", {256, 512, 1024, 2048, 3072}, {1024, 2048, 3072}},
        {"Mac15,3", {512, 1024, 2048}, {}},
        {"Mac16,1", {512, 1024, 2048}, {}},
        {"Mac15,14", {1024, 2048, 4096, 8192, 16384}, {}}};
    for (const auto& [modelID, storage, fusion] : rows) {
        const ModelSpec* spec = SpecCatalog::spec(modelID);
        ASSERT_NE(spec, nullptr) << modelID;
        EXPECT_EQ(spec->storage, storage) << modelID;
        EXPECT_EQ(spec->fusion, fusion) << modelID;
    }
    EXPECT_EQ(SpecCatalog::spec("Mac14,9"), SpecCatalog::spec("Mac14,5"));
    EXPECT_EQ(SpecCatalog::spec("MacBookPro15,1")->sources,
              (std::vector<std::string>{TESSIVO_SUPPORT_HOST "/en-us/111949",
                                        TESSIVO_SUPPORT_HOST "/en-us/111941"}));
}

TEST(SpecCatalog, theKindComesFromTheRowOrThePrefix) {
    const std::pair<const char*, std::optional<MacKind>> rows[] = {
        {"Mac14,3", MacKind::desktop},     {"iMacPro1,1", MacKind::allInOne},
        {"iMacPro9,9", MacKind::allInOne}, {"MacBookPro99,1", MacKind::laptop},
        {"Macmini99,1", MacKind::desktop}, {"MacPro99,1", MacKind::desktop},
        {"Mac17,1", std::nullopt},         {"macbookpro18,1", std::nullopt},
        {"Mac14,22", std::nullopt},        {"", std::nullopt}};
    for (const auto& [modelID, kind] : rows)
        EXPECT_EQ(SpecCatalog::kind(modelID), kind) << modelID;
}

TEST(StorageCheck, findsTheSizeOfAByteCount) {
    constexpr std::nullopt_t none = std::nullopt;
    // The Fusion stage counts only on a row with that size, and only above the size's own range.
    const std::tuple<double, const char*, std::optional<std::int64_t>> rows[] = {
        {57.6, "", 64},           {57.5, "", none},           {245, "", 256},
        {263.68, "", 256},        {263.7, "", none},          {300, "", none},
        {512, "", 512},           {899.9, "", none},          {900, "", 1024},
        {1030, "", 1024},         {1030.1, "", none},         {1500, "", 1536},
        {1800, "", 2048},         {16480, "", 16384},         {17000, "", none},
        {0, "iMac19,2", none},    {-500, "iMac19,2", none},   {1100, "iMac19,2", 1024},
        {1160, "iMac19,2", 1024}, {1160.1, "iMac19,2", none}, {1100, "Mac14,2", none},
        {1100, "", none},         {2100, "iMac19,2", none},   {2100, "iMac19,1", 2048},
        {3200, "iMac19,1", 3072}, {3300, "iMac19,1", none}};
    for (const auto& [gigabytes, modelID, size] : rows)
        EXPECT_EQ(StorageCheck::nearest(std::llround(gigabytes * 1e9), SpecCatalog::spec(modelID)), size)
            << gigabytes << " " << modelID;
}

} // namespace
} // namespace tessivo
