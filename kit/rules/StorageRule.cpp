#include "kit/catalog/StorageCheck.h"
#include "kit/hardware/ByteText.h"
#include "kit/rules/RuleTexts.h"
#include "kit/rules/Rules.h"
#include "kit/support/Text.h"

namespace tessivo::Rules {

std::string sizeList(const std::vector<std::int64_t>& sizes) {
    std::vector<std::string> labels;
    for (const std::int64_t size : sizes)
        labels.push_back(ByteText::sizeLabel(size));
    return Text::joined(labels, ", ");
}

namespace {

constexpr const char* replaceableDrive =
    "This model's drive can be replaced, so it may not be the one it was sold with.";

/// The drive is known to be of `size`; what speaks for or against it.
std::pair<TestStatus, std::string> verdict(std::int64_t size, const ModelSpec* row,
                                           std::optional<std::int64_t> listed) {
    const std::string drive = ByteText::sizeLabel(size) + " drive";
    if (row && StorageCheck::isForeign(size, *row)) {
        // Whatever the listing claims.
        if (!row->replaceableStorage)
            return {TestStatus::problem, drive + ", a size this model wasn't sold with"};
        return {TestStatus::checkByHand,
                drive + ", a size this model wasn't sold with. Ask whether it was replaced."};
    }
    if (row && listed.value_or(size) == size)
        return {TestStatus::works, drive + ", a size this model was sold with"};
    if (!listed) return {TestStatus::checkByHand, drive + ". Compare it with the listing."};
    if (*listed != size)
        return {TestStatus::problem, drive + ", but the listing says " + ByteText::sizeLabel(*listed)};
    return {TestStatus::works, drive + ", as listed"};
}

} // namespace

std::string replaceableDriveNote(const MachineInfo& machine) {
    const ModelSpec* row = machine.spec();
    if (!row || !row->replaceableStorage) return {};
    std::string note = replaceableDrive;
    const auto size = machine.marketedStorageGB();
    if (size && StorageCheck::isForeign(*size, *row))
        note += " A size Apple didn't sell is a check by hand: ask the seller.";
    return note;
}

TestResult storage(std::optional<std::int64_t> bytes, const ModelSpec* row,
                   std::optional<std::int64_t> listed) {
    if (!bytes)
        return {TestID::storage,
                TestStatus::checkByHand,
                "Couldn't read the drive size",
                {"Apple menu › About This Mac › More Info › Storage shows it."}};

    const std::string measured = ByteText::bytes(*bytes, false);
    std::vector<std::string> details = {"macOS reports " + measured + " for the startup drive"};
    if (row) {
        std::string sold = "Sold with: " + sizeList(row->storage);
        if (!row->fusion.empty()) sold += " (" + sizeList(row->fusion) + " as a Fusion Drive)";
        details.push_back(std::move(sold));
        if (row->replaceableStorage) details.push_back(replaceableDrive);
    }
    if (listed) details.push_back("Listing says: " + ByteText::sizeLabel(*listed));

    const std::optional<std::int64_t> size = StorageCheck::nearest(*bytes, row);
    if (!size) {
        details.push_back("The drive may be split into parts; Disk Utility shows them.");
        return {TestID::storage, TestStatus::checkByHand, measured + " isn't a standard size",
                std::move(details)};
    }
    auto [status, summary] = verdict(*size, row, listed);
    return {TestID::storage, status, std::move(summary), std::move(details)};
}

} // namespace tessivo::Rules
