#include "kit/hardware/MachineInfo.h"

#include "kit/catalog/StorageCheck.h"
#include "kit/hardware/ByteText.h"
#include "kit/support/Text.h"

#include <cmath>

namespace tessivo {

std::string MachineInfo::displayName() const {
    return SpecCatalog::displayName(modelID);
}

const ModelSpec* MachineInfo::spec() const {
    return SpecCatalog::spec(modelID);
}

std::optional<Processor> MachineInfo::processor() const {
    if (const ModelSpec* row = spec()) return row->processor;
    if (chip && chip->starts_with("Apple")) return Processor::appleSilicon;
    // An Intel chip's text can't tell a Mac with the T2 chip from one without.
    return std::nullopt;
}

bool MachineInfo::isIntel() const {
    if (const auto known = processor()) return *known != Processor::appleSilicon;
    return chip && chip->find("Intel") != std::string::npos;
}

std::string MachineInfo::memoryText() const {
    return ByteText::number(std::ldexp(double(memoryBytes), -30)) + " GB";
}

std::optional<std::int64_t> MachineInfo::marketedStorageGB() const {
    if (!storageBytes) return std::nullopt;
    return StorageCheck::nearest(*storageBytes, spec());
}

std::optional<std::string> MachineInfo::storageText() const {
    if (!storageBytes) return std::nullopt;
    if (const auto size = marketedStorageGB()) return ByteText::sizeLabel(*size);
    return ByteText::bytes(*storageBytes, false);
}

std::optional<std::string> sysctlText(const std::optional<std::string>& bytes) {
    if (!bytes) return std::nullopt;
    std::string text = Text::repaired(std::string_view(*bytes).substr(0, bytes->find('\0')));
    if (text.empty()) return std::nullopt;
    return text;
}

std::string osVersionText(const std::optional<std::string>& title, std::int64_t major, std::int64_t minor,
                          std::int64_t patch, const std::optional<std::string>& build) {
    std::string text;
    if (title) {
        text = *title;
    } else {
        text = "macOS " + std::to_string(major) + "." + std::to_string(minor);
        if (patch >= 1) text += "." + std::to_string(patch);
    }
    if (build) text += " (" + *build + ")";
    return text;
}

} // namespace tessivo
