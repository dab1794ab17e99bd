#include "kit/hardware/ByteText.h"
#include "kit/hardware/MachineInfo.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

MachineInfo machine(std::string modelID, std::optional<std::string> chip = {}) {
    MachineInfo machine;
    machine.modelID = std::move(modelID);
    machine.chip = std::move(chip);
    return machine;
}

TEST(ByteText, writesShortNumbers) {
    const std::pair<double, const char*> rows[] = {
        {0, "0"},        {0.04, "0"},    {0.05, "0.1"},  {1.5, "1.5"},
        {15.94, "15.9"}, {15.96, "16"},  {15.99, "16"},  {99.94, "99.9"},
        {99.95, "100"},  {99.96, "100"}, {100.4, "100"}, {100.5, "101"},
        {245.6, "246"},  {-0.01, "0"},   {-1.5, "-1.5"}, {18446744073.0, "18446744073"}};
    for (const auto& [value, expected] : rows)
        EXPECT_EQ(ByteText::number(value), expected) << value;
}

TEST(ByteText, labelsTableSizesAndByteCounts) {
    const std::pair<std::int64_t, const char*> labels[] = {
        {64, "64 GB"}, {1000, "1000 GB"}, {1024, "1 TB"}, {1536, "1.5 TB"}, {16384, "16 TB"}};
    for (const auto& [size, expected] : labels)
        EXPECT_EQ(ByteText::sizeLabel(size), expected);

    EXPECT_EQ(ByteText::bytes(245'107'195'904, false), "245 GB");
    EXPECT_EQ(ByteText::bytes(999'900'000'000, false), "1000 GB");
    EXPECT_EQ(ByteText::bytes(1'000'000'000'000, false), "1 TB");
    EXPECT_EQ(ByteText::bytes(1'100'000'000'000, false), "1.1 TB");
    EXPECT_EQ(ByteText::bytes(std::int64_t{1536} << 30, true), "1536 GB") << "memory never turns into TB";
}

TEST(MachineInfo, tellsTheProcessorFromTheCatalogBeforeTheChip) {
    using Chip = std::optional<std::string>;
    const std::tuple<const char*, Chip, std::optional<Processor>, bool> rows[] = {
        {"Mac14,2", "Intel(R) Core(TM) i5", Processor::appleSilicon, false},
        {"MacBookPro16,1", "Apple M2", Processor::intelT2, true},
        {"iMac19,2", {}, Processor::intel, true},
        {"Mac99,1", "Apple M9", Processor::appleSilicon, false},
        {"Mac99,1", "Intel(R) Core(TM) i5", std::nullopt, true},
        {"Mac99,1", "An Apple M9", std::nullopt, false},
        {"Mac99,1", {}, std::nullopt, false}};
    for (const auto& [model, chip, processor, isIntel] : rows) {
        EXPECT_EQ(machine(model, chip).processor(), processor) << model << " " << chip.value_or("-");
        EXPECT_EQ(machine(model, chip).isIntel(), isIntel) << model << " " << chip.value_or("-");
    }
    EXPECT_EQ(machine("Mac14,2").displayName(), "MacBook Air (M2, 2022)");
    EXPECT_EQ(machine("Mac99,1").displayName(), "Mac99,1");
}

TEST(MachineInfo, writesMemoryAndStorage) {
    MachineInfo mac = machine("Mac14,2");
    EXPECT_EQ(mac.storageText(), std::nullopt);
    mac.memoryBytes = 17179869184;
    EXPECT_EQ(mac.memoryText(), "16 GB");
    mac.memoryBytes = 1610612736;
    EXPECT_EQ(mac.memoryText(), "1.5 GB");
    mac.memoryBytes = ~std::uint64_t{0};
    EXPECT_EQ(mac.memoryText(), "17179869184 GB") << "the largest count has its sign bit set";

    const std::tuple<const char*, std::int64_t, const char*> storage[] = {
        {"Mac14,2", 245'107'195'904, "256 GB"},   {"Mac14,2", 300'000'000'000, "300 GB"},
        {"Mac99,1", 1'100'000'000'000, "1.1 TB"}, {"iMac19,2", 1'100'000'000'000, "1 TB"},
        {"Mac99,1", 1'500'000'000'000, "1.5 TB"}, {"Mac99,1", 0, "0 GB"}};
    for (const auto& [model, bytes, expected] : storage) {
        MachineInfo sized = machine(model);
        sized.storageBytes = bytes;
        EXPECT_EQ(sized.storageText(), expected) << model << " " << bytes;
    }
}

TEST(MachineInfo, readsSystemTextUpToItsFirstZeroByte) {
    using namespace std::string_literals;
    EXPECT_EQ(sysctlText("Mac14,2\0rest"s), "Mac14,2");
    EXPECT_EQ(sysctlText("M\xff"s), "M\uFFFD");
    EXPECT_EQ(sysctlText("\0Mac14,2"s), std::nullopt);
    EXPECT_EQ(sysctlText(std::nullopt), std::nullopt);
}

TEST(MachineInfo, writesTheSystemVersion) {
    EXPECT_EQ(osVersionText({}, 15, 3, 1, "24D70"), "macOS 15.3.1 (24D70)");
    EXPECT_EQ(osVersionText({}, 15, 0, 0, {}), "macOS 15.0");
    EXPECT_EQ(osVersionText("Debian GNU/Linux 12", 12, 0, 0, "6.1.0"), "Debian GNU/Linux 12 (6.1.0)");
}

} // namespace
} // namespace tessivo
